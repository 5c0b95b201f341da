// A port whose other end is the test: it keeps what was written and lets the test put bursts in. Nothing is
// paced; sessions over a line use the practice drive.
#pragma once

#include <QStringList>

#include "link/com_port.h"

namespace kelvane {

class StubPort final : public TApdComPort {
   public:
    bool open() override {
        ++opens;
        isOpen = canOpen;
        return isOpen;
    }
    void close() override {
        ++closes;
        isOpen = false;
    }
    bool Open() const override { return isOpen; }
    QString openError() const override {
        return canOpen ? QString() : QStringLiteral("there is no such device");
    }
    const PortSettings& settings() const override { return line; }
    void setSettings(const PortSettings& settings) override { line = settings; }
    bool PutBlock(const QByteArray& bytes) override { return put(bytes, "block"); }
    bool PutString(const QByteArray& text) override { return put(text, "string"); }
    std::optional<char> GetChar() override {
        if (input.isEmpty()) return std::nullopt;
        const char c = input.front();
        input.remove(0, 1);
        return c;
    }
    void dropInput() override { input.clear(); }
    bool holdBack(bool on) override { return isHeldBack = on && canHoldBack; }

    // One burst from the other end; with what was held back before it.
    void arrive(const QByteArray& burst) {
        input += burst;
        if (!OnTriggerAvail || isHeldBack) return;
        ++bursts;
        OnTriggerAvail(static_cast<int>(input.size()));
    }
    // A burst that is announced but cannot be read.
    void arriveUnreadable() { OnTriggerAvail(3); }

    QByteArrayList written;
    QByteArrayList kinds;
    QByteArray input;
    bool canOpen = true;
    bool canWrite = true;
    bool isOpen = false;
    bool canHoldBack = false;
    bool isHeldBack = false;
    int opens = 0;
    int closes = 0;
    int bursts = 0;
    PortSettings line{4, 9600, 7, ComParity::None, 2};

   private:
    bool put(const QByteArray& bytes, const char* kind) {
        written += bytes;
        kinds += kind;
        return canWrite;
    }
};

}  // namespace kelvane

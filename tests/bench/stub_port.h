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
    void close() override { isOpen = false; }
    bool Open() const override { return isOpen; }
    QString openError() const override { return QStringLiteral("there is no such device"); }
    const PortSettings& settings() const override { return line; }
    void setSettings(const PortSettings& settings) override { line = settings; }
    bool PutBlock(const QByteArray& bytes) override { return put(bytes, "block"); }
    bool PutString(const QByteArray& text) override { return put(text, "string"); }
    std::optional<char> GetChar() override {
        if (m_input.isEmpty()) return std::nullopt;
        const char c = m_input.front();
        m_input.remove(0, 1);
        return c;
    }
    void dropInput() override { m_input.clear(); }

    // One burst from the other end.
    void arrive(const QByteArray& burst) {
        m_input += burst;
        if (OnTriggerAvail) OnTriggerAvail(static_cast<int>(burst.size()));
    }
    // A burst that is announced but cannot be read.
    void arriveUnreadable() { OnTriggerAvail(3); }

    QByteArrayList written;
    QByteArrayList kinds;
    bool canOpen = true;
    bool canWrite = true;
    bool isOpen = false;
    int opens = 0;
    PortSettings line{4, 9600, 7, ComParity::None, 2};

   private:
    bool put(const QByteArray& bytes, const char* kind) {
        written += bytes;
        kinds += kind;
        return canWrite;
    }
    QByteArray m_input;
};

}  // namespace kelvane

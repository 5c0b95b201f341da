// A port in memory for tests of what uses one: notes what is done with it and gives out what a test lets
// arrive.
#pragma once

#include <QList>

#include "link/com_port.h"

namespace kelvane {

class FakePort final : public TApdComPort {
   public:
    bool open() override { return m_open = m_open || openWorks; }
    void close() override {
        ++closed;
        m_open = false;
    }
    bool Open() const override { return m_open; }
    QString openError() const override { return openWorks ? QString() : QStringLiteral("no luck"); }
    const PortSettings& settings() const override { return m_settings; }
    void setSettings(const PortSettings& settings) override { m_settings = settings; }
    bool PutBlock(const QByteArray& bytes) override { return written << bytes, true; }
    bool PutString(const QByteArray& text) override { return written << text, true; }
    std::optional<char> GetChar() override {
        if (input.isEmpty()) return std::nullopt;
        const char byte = input.front();
        input.remove(0, 1);
        return byte;
    }
    void dropInput() override { input.clear(); }

    void arrive(const QByteArray& bytes) {
        input += bytes;
        OnTriggerAvail(static_cast<int>(input.size()));
    }

    bool openWorks = true;
    int closed = 0;
    QList<QByteArray> written;
    QByteArray input;

   private:
    bool m_open = false;
    PortSettings m_settings;
};

}  // namespace kelvane

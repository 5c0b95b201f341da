// A scheduler on the bench: hand-driven clock, stub port, scripted operator, and the history it wrote.
#pragma once

#include "base/manual_tick_clock.h"
#include "bench/scripted_operator.h"
#include "bench/stub_port.h"
#include "catalogue/identification.h"
#include "drive/drive_registers.h"
#include "link/frame_codec.h"
#include "link/request_scheduler.h"

namespace kelvane {

// Text of characters as hexadecimal digits of a reply.
inline QString hexOf(const char* text) { return QString::fromLatin1(QByteArray(text).toHex().toUpper()); }

struct SchedulerBench {
    ManualTickClock clock;
    FixedWallClock wall{QDateTime(QDate(2026, 3, 2), QTime(9, 8, 7, 60))};
    ScriptedOperator person;
    StubPort port;
    LangTable lang = LangTable::builtInEnglish();
    RequestScheduler link;
    GroupNameTable groupNames;
    DriveIdentification identification{link, groupNames, {person, lang}};
    QStringList history;
    int cycles = 0;

    explicit SchedulerBench(int BrandVariant = 0) : link({clock, wall, person, port, lang}, BrandVariant) {
        QObject::connect(&link, &RequestScheduler::historyLine, [this](const QString& line) {
            history += line.mid(line.indexOf(QLatin1String(" > ")) + 3);
        });
        QObject::connect(&link, &RequestScheduler::cycleEnded, [this] { ++cycles; });
    }

    // Sends the next request and gives the command that went out ("FF0321100003").
    QString send() {
        const qsizetype before = port.written.size();
        clock.advanceUntil([&] { return port.written.size() > before; }, 3000);
        return port.written.size() > before ? commandOf(port.written.back()) : QString();
    }
    // The time that the request takes on the wire: what comes sooner cannot be its answer.
    void passRequest() {
        if (!port.written.isEmpty()) clock.advanceUs(port.line.wireTimeUs(port.written.back().size()));
    }
    // The other end answers with the frame of a command-like text, as good as it can be.
    void answer(const QString& text) {
        passRequest();
        port.arrive(buildFrame(link.mode(), text, FrameCheck::Standard).wire);
        const int before = cycles;
        clock.advanceUntil([&] { return cycles > before; }, 10000);
    }
    void staySilent() {
        const int before = cycles;
        clock.advanceUntil([&] { return cycles > before; }, 10000);
    }
    // A read reply with these words.
    void answerWords(const QList<int>& words) {
        QString text = QStringLiteral("FF03") + hex(static_cast<int>(words.size() * 2), 2);
        for (const int word : words) text += hex(word, 4);
        answer(text);
    }
    static QString hex(int value, int width) {
        return QString::number(value & 0xFFFF, 16).toUpper().rightJustified(width, QLatin1Char('0'));
    }
    QString commandOf(const QByteArray& wire) const {
        if (link.ComMode) return QString::fromLatin1(wire.chopped(2).toHex().toUpper());
        return QString::fromLatin1(wire.mid(1).chopped(4));
    }
    // On line by an identification that a practice drive answers, with nothing queued.
    void beOnLine(Family family = Family::Tilia) {
        drive::PracticeDrive practice(drive::familyData(family));
        link.Initial();
        link.TxTimer.setEnabled(true);
        for (int replies = 0; replies < 1000 && !link.DriveStatus.DriveReady; ++replies) {
            const QByteArray request = QByteArray::fromHex(send().toLatin1());
            answer(QString::fromLatin1(practice.answer(request).toHex().toUpper()));
        }
        link.rest();
        link.emptyQueues();
        port.written.clear();
        history.clear();
        cycles = 0;
    }
};

}  // namespace kelvane

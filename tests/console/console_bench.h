// The console on the bench: a scheduler whose other end is the test, com setup, and a program folder of its
// own.
#pragma once

#include <QTemporaryDir>

#include "base/text_8bit.h"
#include "bench/link_bench.h"
#include "console/advance_console.h"

namespace kelvane {

struct ConsoleBenchWithoutDrive : SchedulerBench {
    QTemporaryDir dir;
    StubPort setupPort;
    ComSetup comSetup{link, setupPort, clock, {person, lang}};
    std::unique_ptr<AdvanceConsole> console;

    explicit ConsoleBenchWithoutDrive(const QByteArray& defaultCml = {}) {
        if (!defaultCml.isEmpty()) writeWhole(dir.filePath("default.cml"), defaultCml);
        comSetup.ComPortComboBoxChange("3");
        comSetup.ModeComboBoxChange("RTU");
        comSetup.copySettingsToLink();
        console = std::make_unique<AdvanceConsole>(
            ConsoleSite{link, comSetup, clock, wall, {person, lang}, dir.path()});
        link.prelude();
        link.ActiveFunction = OwnerAdvance;
        console->opened();
    }

    // What went out since the last call, as the bytes on the wire.
    QStringList sentFrames() {
        QStringList frames;
        for (; m_taken < port.written.size(); ++m_taken)
            frames += from8Bit(port.written[m_taken].toHex().toUpper());
        return frames;
    }
    // The same without their checks.
    QStringList sent() {
        QStringList commands;
        for (const QString& frame : sentFrames()) commands += frame.chopped(4);
        return commands;
    }
    void run(int ms) { clock.advance(ms); }
    // What the drive sends, with its check.
    void reply(const QString& text) {
        port.arrive(buildFrame(LinkMode::Rtu, text, FrameCheck::Standard).wire);
    }
    void typeCommands(const QStringList& commands) {
        for (qsizetype i = 0; i < commands.size(); ++i) {
            const int row = static_cast<int>(i) + 1;
            if (row >= list().RowCount()) console->list.addRow();
            list().setCell(CommandList::CommandColumn, row, commands[i]);
        }
    }
    StringGrid& list() { return console->list.CmdAdvStringGrid; }
    StringGrid& table() { return console->panel.AdvStringGrid1; }
    QString message(int row) { return list().cell(CommandList::MessageColumn, row); }
    QString data(int row) { return list().cell(CommandList::DataColumn, row); }
    QString topLine() { return console->log.lines().front().text; }
    quint32 topColour() { return console->log.lines().front().colour; }

   private:
    qsizetype m_taken = 0;
};

}  // namespace kelvane

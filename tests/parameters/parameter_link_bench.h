// The parameter window's session on the scheduler's bench, with answers of a drive for parameters.
#pragma once

#include "bench/link_bench.h"
#include "parameters/parameter_session.h"

namespace kelvane {

// A record as a drive has it, in the order of the wire: data, max, min, attribute, default.
struct DriveRecord {
    QList<int> words;
    QString name = QStringLiteral("Max Output Freq.");
    QString unit = QStringLiteral("Hz  ");
};

inline constexpr int TwoPlacesRunSet = 0x0202;
inline const DriveRecord R1{{6000, 60000, 5000, TwoPlacesRunSet, 6000}};

// On line in the parameter window, as Tilia with group 0 (two parameters), 1 (three) and the reserved
// group 2.
struct ParameterLinkBench : SchedulerBench {
    GroupNameTable names;
    ParameterSession session{link, clock, names, {person, lang}};
    ParameterTable& table = session.driveTable;
    ParameterScreen& screen = session.screen;
    ProgressDialog& progress = session.progress;
    ParameterReader& reader = session.reader;
    ParameterWriter& writer = session.writer;
    int complete = -1;  // what the reader ended with

    explicit ParameterLinkBench(quint8 DriveFamily = 4) {
        beOnLine(static_cast<Family>(DriveFamily));
        link.ActiveFunction = OwnerParameter;
        link.DriveStatus.GroupCount = 2;
        link.DriveStatus.GroupParamCount[0] = 1;
        link.DriveStatus.GroupParamCount[1] = 2;
        link.DriveStatus.GroupParamCount[2] = 0;
        if (DriveFamily == 4) {
            names.storeReportedName(4, 0, QStringLiteral("User            "));
            names.storeReportedName(4, 1, QStringLiteral("Basic           "));
            names.storeReportedName(4, 2, QStringLiteral("Reserved        "));
        }
        QObject::connect(&reader, &ParameterReader::ended, [this](bool whole) { complete = whole; });
    }

    void answerRecord(const DriveRecord& record = R1) {
        QString data;
        for (const int word : record.words) data += hex(word, 4);
        if (record.words.size() == 5) data += hexOf(qPrintable(record.name)) + hexOf(qPrintable(record.unit));
        answer(QStringLiteral("FF03") + hex(static_cast<int>(data.size() / 2), 2) + data);
    }
    // Answers every read with R1, each under a name of its own, until nothing more is asked; the commands,
    // one behind the other.
    QStringList readAll(DriveRecord record = R1) {
        QStringList asked;
        for (QString command = send(); !command.isEmpty() && asked.size() < 100; command = send()) {
            asked += command;
            record.name = record.name.left(13) + command.mid(5, 3);
            answerRecord(record);
        }
        return asked;
    }
    // Starts the read and answers so many requests; the next one is on the wire then.
    void readSome(int replies) {
        reader.ReadDriveTransparentButtonClick();
        for (int i = 0; i < replies; ++i) {
            send();
            answerRecord();
        }
        send();
    }
    // A table from drive with rows 01-00, 01-01, ... of these value texts, two places each; the boxes are
    // set.
    void openTable(const QStringList& values) {
        table.identity.family = static_cast<Family>(link.DriveStatus.DriveFamily);
        fillGroupRow(table.grid, 1, QStringLiteral("1 - Basic"));
        for (int N = 0; N < values.size(); ++N) {
            fillParameterRow(table.grid, N + 2, Family::Larch, 1, N,
                             {6000, 60000, 5000, TwoPlacesRunSet, 4000, R1.name, R1.unit});
            table.grid.setCell(column::Data, N + 2, values[N]);
            table.grid.setCheckBox(N + 2, true);
        }
        session.driveHistory.tableRead();
        screen.DriveTabSheetVisible = true;
    }
    // Presses OK, and yes in its question.
    void pressOk() {
        person.expectBox("Do you want to write the parameter(s) to drive ?", "Cofirm", BoxAnswer::Yes);
        writer.OKTransparentButtonClick();
    }
    // Echoes writes and answers read-backs with a word until nothing more is asked; all commands.
    QStringList writeAll(int word = 0x1770) {
        QStringList asked;
        for (QString command = send(); !command.isEmpty() && asked.size() < 100; command = send()) {
            asked += command;
            command.startsWith("FF06") ? answer(command) : answerWords({word});
        }
        return asked;
    }
    // A refusal with its text.
    void refuse(int code, const char* text) {
        answer(QStringLiteral("FF86") + hex(code, 2));
        asked15 = send();
        const int length = link.DriveStatus.DriveFamily == 0 ? 20 : 16;
        const QByteArray padded = QByteArray(text).leftJustified(length, ' ', true);
        answer(QStringLiteral("FF03") + hex(length, 2) + hexOf(padded.constData()));
    }
    QString asked15;  // the request for the last refusal's text
    static QStringList column(const StringGrid& grid, int column) {
        QStringList texts;
        for (int row = 1; row < grid.RowCount(); ++row) texts += grid.cell(column, row);
        return texts;
    }
};

}  // namespace kelvane

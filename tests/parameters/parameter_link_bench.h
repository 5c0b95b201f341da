// Reader and writer of the parameter window on the scheduler's bench, with answers of a drive for parameters.
#pragma once

#include "bench/link_bench.h"
#include "parameters/parameter_reader.h"

namespace kelvane {

// A record as a drive has it, in the order of the wire: data, max, min, attribute, default.
struct DriveRecord {
    QList<int> words;
    QString name = QStringLiteral("Max Output Freq.");
    QString unit = QStringLiteral("Hz  ");
};

inline constexpr int TwoPlacesRunSet = 0x0202;
inline const DriveRecord R1{{6000, 60000, 5000, TwoPlacesRunSet, 6000}};

// On line in the parameter window, as Tilia with group 0 (two parameters), 1 (three) and the reserved group 2.
struct ParameterLinkBench : SchedulerBench {
    GroupNameTable names;
    ParameterTable table;
    ParameterScreen screen;
    ParameterBench bench{link, clock, names, {}};
    ProgressDialog progress{link, clock};
    ParameterReader reader{bench, table, screen, progress};
    int complete = -1;  // what the reader ended with

    explicit ParameterLinkBench(quint8 DriveFamily = 4) {
        beOnLine(DriveFamily);
        link.ActiveFunction = OwnerParameter;
        link.Lamp.ComStatusAbLED = QStringLiteral("On Line");
        link.Lamp.green = true;
        link.fixedParaName = fixedParaName;
        link.DriveStatus.GroupCount = 2;
        link.DriveStatus.GroupParamCount[0] = 1;
        link.DriveStatus.GroupParamCount[1] = 2;
        screen.ModelVrLabel = QString::fromLatin1(familyName(DriveFamily));
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
    // Answers every read with R1 until nothing more is asked; the commands, one behind the other.
    QStringList readAll(const DriveRecord& record = R1) {
        QStringList asked;
        for (QString command = send(); !command.isEmpty(); command = send()) {
            asked += command;
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
    static QStringList column(const StringGrid& grid, int column) {
        QStringList texts;
        for (int row = 1; row < grid.RowCount(); ++row) texts += grid.cell(column, row);
        return texts;
    }
};

}  // namespace kelvane

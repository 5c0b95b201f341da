// The tool on line with a practice drive, on a hand-driven clock: scheduler, identification and the Parameter
// window's session over a paced line that can be made to fail. It comes on line by a real identification,
// nothing is set by hand. Whatever a request is credited with is compared with what the drive answers to that
// very request.
#pragma once

#include <functional>

#include "base/manual_tick_clock.h"
#include "bench/credit_check.h"
#include "catalogue/identification.h"
#include "drive/parameter_data.h"
#include "drive/practice_port.h"
#include "link/com_setup.h"
#include "link/number_text.h"
#include "parameters/parameter_session.h"

namespace kelvane {

// Takes what comes: another try whenever it is offered, yes to every question. Remembers what was asked.
struct WillingOperator final : Operator {
    QStringList asked;
    // Answer a failure of the link, a box or an edit in another way.
    std::function<LinkAnswer()> onLinkFailure = [] { return LinkAnswer::Retry; };
    std::function<BoxAnswer(const QString& title)> onBox;
    std::function<void(ValueEdit&)> onEdit = [](ValueEdit&) {};

    BoxAnswer box(const QString& text, const QString& title, BoxIcon, BoxButtons buttons) override {
        asked += title + QStringLiteral(": ") + text;
        if (onBox) return onBox(title);
        switch (buttons) {
            case BoxButtons::RetryCancel: return BoxAnswer::Retry;
            case BoxButtons::YesNo:
            case BoxButtons::YesNoOrLeave: return BoxAnswer::Yes;
            default: return BoxAnswer::Ok;
        }
    }
    std::optional<QString> openFile(const QString&) override { return {}; }
    std::optional<QString> saveFile(const QString&, const QString&) override { return {}; }
    LinkAnswer linkFailure(const QString& text, bool) override {
        asked += text;
        return onLinkFailure();
    }
    void editValue(ValueEdit& edit) override { onEdit(edit); }
};

struct LineChoice {
    Family family = Family::Tilia;
    drive::LineMode mode = drive::LineMode::Ascii;
    int Baud = 9600;
    drive::ByteFlow flow = drive::ByteFlow::Single;
    bool holdsBack = false;
    int turnaroundMs = 5;
    drive::DriveOptions drive{};

    drive::LineOptions options() const {
        drive::LineOptions line{.mode = mode, .turnaroundUs = qint64(turnaroundMs) * 1000, .flow = flow};
        line.wire = {.Baud = Baud, .DataBits = mode == drive::LineMode::Rtu ? 8 : 7};
        return line;
    }
};

struct OnLineBench {
    ManualTickClock clock;
    FixedWallClock wall{QDateTime(QDate(2026, 3, 2), QTime(9, 8, 7, 60))};
    WillingOperator person;
    LangTable lang = LangTable::builtInEnglish();
    const drive::FamilyData& data;
    drive::PracticeStation station;
    RequestScheduler link{{clock, wall, person, station.port, lang}};
    GroupNameTable names;
    DriveIdentification identification{link, names, {person, lang}};
    ParameterSession session{link, clock, names, {person, lang}};
    CreditCheck credits{link, [this] { return &station.drive; }};
    QStringList history;
    int cycles = 0;
    int polls = 0;

    explicit OnLineBench(const LineChoice& choice = {})
        : data(drive::familyData(choice.family)), station(clock, data, choice.options(), choice.drive) {
        station.port.setSettings(choice.options().wire);
        station.port.setCanHoldBack(choice.holdsBack);
        link.ComMode = choice.mode == drive::LineMode::Rtu;
        link.BaudTimeoutTicks = link.ReplyTimeoutTicks = baudTimeoutTicks(choice.Baud);
        QObject::connect(&link, &RequestScheduler::historyLine, [this](const QString& line) {
            history += line.mid(line.indexOf(QLatin1String(" > ")) + 3);
        });
        QObject::connect(&link, &RequestScheduler::cycleEnded, [this] { ++cycles; });
        QObject::connect(&link, &RequestScheduler::statusDecoded, [this] { ++polls; });
        credits.compareState = true;
        // As the keypad does in the tool.
        link.onReply(9, [this](const QString&, const QByteArray& RxData) {
            link.DriveStatus.MaxFreqWord = wordAt(RxData, 4);
        });
        link.Initial();
    }

    // As Accept and Yes in com setup; true when the first poll has come.
    bool goOnLine(qint64 maxMs = 120000) {
        link.TxTimer.setEnabled(true);
        return clock.advanceUntil([this] { return link.DriveStatus.DriveReady == 1; }, maxMs);
    }
    bool awaitPolls(int times, qint64 maxMs = 60000) {
        const int until = polls + times;
        return clock.advanceUntil([&] { return polls >= until; }, maxMs);
    }
    void openParameterWindow() {
        link.prelude();
        link.ActiveFunction = OwnerParameter;
        session.opened();
    }
    void closeParameterWindow() {
        session.FormClose();
        link.tail();
    }
    void readTable() {
        session.reader.ReadDriveTransparentButtonClick();
        clock.advanceUntil([this] { return !session.progress.shown; }, 3600 * 1000);
    }

    drive::FaultPlan& faults() { return station.line.faults(); }
    qsizetype sent() const { return station.port.writes().size(); }
    QStringList transcript() const { return station.port.transcript(); }
    // Group names and counts, identity and limits that differ from the drive's; empty when all is right.
    QStringList wrongIdentity() const {
        QStringList wrong;
        const DriveStatusRecord& status = link.DriveStatus;
        if (status.DriveFamily != quint8(data.family)) wrong += "family";
        if (status.DriveIdCode != data.modelCode) wrong += "model";
        if (int(status.GroupCount) != int(data.groups.size()) - 1) wrong += "group count";
        const bool named = !station.port.transcript().filter(QStringLiteral("FF0331")).isEmpty();
        for (size_t G = 0; G < data.groups.size(); ++G) {
            if (status.GroupParamCount[G] + size_t(1) != data.groups[G].rows.size())
                wrong += QStringLiteral("count of %1: %2").arg(G).arg(status.GroupParamCount[G]);
            const QString name = named ? QString::number(G) + " - " + latin(data.groups[G].name).trimmed()
                                       : GroupNameTable().groupName(status.DriveFamily, int(G));
            if (names.groupName(status.DriveFamily, int(G)) != name)
                wrong +=
                    QStringLiteral("name of %1: %2").arg(G).arg(names.groupName(status.DriveFamily, int(G)));
        }
        const uint16_t MaxFreq = data.family == Family::Rowan ? 0x0003 : 0x0100;
        if (status.MaxFreqWord != station.drive.word(MaxFreq)) wrong += "maximum frequency";
        return wrong;
    }

    // Rows of the drive table, up to so many, that differ from the drive's own; empty when all are right.
    QStringList wrongRows(int upTo = 100000) const {
        QStringList wrong;
        const StringGrid& grid = session.DriveAdvStringGrid;
        int row = 1;
        for (size_t G = 0; G + 1 < data.groups.size(); ++G) {
            if (data.family != Family::Rowan) ++row;
            for (size_t N = 0; N < data.groups[G].rows.size(); ++N, ++row) {
                if (row >= upTo) return wrong;
                const QString difference = differenceOf(grid, row, int(G), int(N));
                if (!difference.isEmpty()) wrong += QStringLiteral("row %1: ").arg(row) + difference;
            }
        }
        if (grid.RowCount() != row)
            wrong += QStringLiteral("%1 rows in place of %2").arg(grid.RowCount()).arg(row);
        return wrong;
    }

   private:
    static QString latin(std::string_view text) {
        return QString::fromLatin1(text.data(), qsizetype(text.size()));
    }

    QString differenceOf(const StringGrid& grid, int row, int G, int N) const {
        const drive::ParamRow& held = data.groups[size_t(G)].rows[size_t(N)];
        const auto text = [&](int value) {
            return InsertDecimalPoint(QString::number(value & 0xFFFF), held.dot);
        };
        const auto address = uint16_t(G << 8 | N);
        const bool described = data.family != Family::Hazel;
        const auto differs = [&](int column, const QString& wanted) {
            return grid.cell(column, row).trimmed() != wanted.trimmed();
        };
        if (differs(column::Address, addressText(G, N))) return "address " + grid.cell(column::Address, row);
        if (!(held.flags & drive::Signed)) {
            if (differs(column::Data, text(*station.drive.word(address))))
                return "value " + grid.cell(column::Data, row);
            if (differs(column::Min, text(held.min))) return "minimum " + grid.cell(column::Min, row);
            if (differs(column::Max, text(held.max))) return "maximum " + grid.cell(column::Max, row);
            if (described && differs(column::Default, text(held.defaultValue)))
                return "default " + grid.cell(column::Default, row);
        }
        if (described && differs(column::Description, latin(held.name)))
            return "name " + grid.cell(column::Description, row);
        return {};
    }
};

}  // namespace kelvane

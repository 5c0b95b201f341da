// The Parameter window's session with its real dialogs, a practice drive at the other end of the line, and a
// person who answers boxes from a script and edits values in the real editor.
#pragma once

#include <QAbstractButton>
#include <QLabel>
#include <QTest>
#include <stdexcept>

#include "base/manual_tick_clock.h"
#include "bench/scripted_operator.h"
#include "drive/practice_port.h"
#include "parameters/dialogs/input_value_form.h"
#include "parameters/dialogs/progress_form.h"
#include "parameters/dialogs/write_check_err_record_form.h"
#include "parameters/dialogs/write_check_form.h"
#include "parameters/parameter_session.h"
#include "parameters/table/table_edit.h"
#include "ui/string_grid_view.h"

namespace kelvane {

template <typename T = QWidget>
T& part(const QWidget& form, const char* name) {
    T* found = form.findChild<T*>(QLatin1String(name));
    if (!found) throw std::runtime_error(name);
    return *found;
}

// The dialogs show in the next turn of the event loop what changed.
inline QString textOf(const QWidget& form, const char* name) {
    QCoreApplication::sendPostedEvents();
    return part<QLabel>(form, name).text();
}

inline void press(const QWidget& form, const char* name) {
    QTest::mouseClick(&part<QAbstractButton>(form, name), Qt::LeftButton);
}

class HandyOperator final : public Operator {
   public:
    explicit HandyOperator(const LangTable& lang) : editor(script, lang) {}

    ScriptedOperator script;
    TInputValueForm editor;
    std::function<void(TInputValueForm&)> hand;  // what the person does in the editor, then forgotten

    BoxAnswer box(const QString& text, const QString& title, BoxIcon icon, BoxButtons buttons) override {
        return script.box(text, title, icon, buttons);
    }
    std::optional<QString> openFile(const QString& filter) override { return script.openFile(filter); }
    std::optional<QString> saveFile(const QString& filter, const QString& suffix) override {
        return script.saveFile(filter, suffix);
    }
    LinkAnswer linkFailure(const QString& text, bool ignoreShown) override {
        return script.linkFailure(text, ignoreShown);
    }
    void editValue(ValueEdit& edit) override {
        editor.prepare(edit)->show();
        ASSERT_TRUE(hand) << "the editor came without being expected";
        std::exchange(hand, {})(editor);
        if (editor.isVisible()) editor.close();
    }
};

struct DialogBench {
    static drive::LineOptions line() {
        drive::LineOptions options{.mode = drive::LineMode::Rtu};
        options.wire = {.Baud = 38400, .DataBits = 8};
        return options;
    }

    ManualTickClock clock;
    FixedWallClock wall{QDateTime(QDate(2026, 3, 2), QTime(9, 8, 7))};
    LangTable lang = LangTable::builtInEnglish();
    HandyOperator person{lang};
    drive::PracticeStation station;
    RequestScheduler link;
    GroupNameTable names;
    ParameterSession session{link, clock, names, {person, lang}};
    TProgressForm progress{session.progress};
    TWriteCheckForm writeCheck{session};
    TWriteCheckErrRecordForm errorRecord{session.writer};
    StringGrid& table = session.DriveAdvStringGrid;
    StringGrid& list = session.writer.AdvStringGrid1;

    explicit DialogBench(Family family = Family::Larch)
        : station(clock, drive::familyData(family), line()), link({clock, wall, person, station.port, lang}) {
        link.Initial();
        link.emptyQueues();
        station.port.setSettings(line().wire);
        link.ComMode = 1;
        link.BaudTimeoutTicks = link.ReplyTimeoutTicks = 5;
        link.ActiveFunction = OwnerParameter;
        link.Lamp.ComStatusAbLED = QStringLiteral("On Line");
        link.ParamRead.fixedParaName = fixedParaName;
        link.Labels.DriveVrLabel = QString::fromLatin1(familyName(family));
        link.notifyChanged();
        link.DriveStatus.DriveReady = 1;
        link.DriveStatus.DriveFamily = static_cast<quint8>(family);
        const int groups = station.drive.parameters().groupCount();
        link.DriveStatus.GroupCount = static_cast<quint8>(groups);
        for (int G = 0; G <= groups; ++G)
            link.DriveStatus.GroupParamCount[static_cast<size_t>(G)] =
                station.drive.parameters().highestNumber(G).value_or(0);
        for (size_t G = 0; G < drive::familyData(family).groups.size(); ++G)
            names.storeReportedName(
                static_cast<quint8>(family), static_cast<int>(G),
                QString::fromStdString(std::string(drive::familyData(family).groups[G].name)));
        session.opened();
    }
    bool runUntil(const std::function<bool()>& done) { return clock.advanceUntil(done, 600 * 1000); }
    bool readRows(int count) {
        return runUntil([&] { return session.progress.count >= count; });
    }
    void readTable() {
        session.reader.ReadDriveTransparentButtonClick();
        runUntil([&] { return !session.progress.shown; });
    }
    // Double click on the data of a parameter of the table.
    void edit(const QString& PrNo, std::function<void(TInputValueForm&)> hand) {
        person.hand = std::move(hand);
        ProcessAdvStringGridDblClickCell(table, column::Data, rowOfNumber(table, PrNo), person);
    }
    QString data(const QString& PrNo) const { return table.cell(column::Data, rowOfNumber(table, PrNo)); }

    StringGridView& listView() { return part<StringGridView>(writeCheck, "AdvStringGrid1"); }
    QPoint cellAt(int column, int row) { return listView().visualRect(list.index(row - 1, column)).center(); }
};

}  // namespace kelvane

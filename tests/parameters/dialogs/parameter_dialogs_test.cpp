// The dialogs of the Parameter window by the names of their controls, over a practice drive.

#include <gtest/gtest.h>

#include <QComboBox>
#include <QHeaderView>
#include <QImage>
#include <QLineEdit>

#include "bench/decimal_sep.h"
#include "parameters/dialogs/parameter_dialogs_bench.h"
#include "parameters/dialogs/sel_comp_kind_form.h"
#include "parameters/dialogs/sel_file_format_form.h"
#include "parameters/dialogs/sel_para_print_form.h"
#include "parameters/dialogs/sel_para_source_form.h"

#include "ui/lamp.h"

namespace kelvane {

namespace {

const char* const WriteQuestion = "Do you want to write the parameter(s) to drive ?";
const char* const StopQuestion = "Are you sure terminate ?";

// ---- Whole sessions ----

class DialogSession : public testing::TestWithParam<Family> {
   protected:
    DialogBench b{GetParam()};

    void editTwoRows() {
        b.edit("00-03", [](TInputValueForm& editor) {
            auto& box = part<QComboBox>(editor, "InputComboBox");
            EXPECT_TRUE(box.isVisible() && !part(editor, "InputEdit").isVisible());
            QTest::keyClick(&box, Qt::Key_Down);
            QTest::keyClick(&box, Qt::Key_Down);
            QTest::keyClick(&box, Qt::Key_Return);
            EXPECT_FALSE(editor.isVisible());
        });
        b.edit("01-00", [](TInputValueForm& editor) {
            EXPECT_EQ(textOf(editor, "PrInforVrLabel"), "01-00: Max Output Freq. (50.00 ~ 400.00 )");
            QTest::keyClicks(&part(editor, "InputEdit"), "75.5");
            QTest::keyClick(&part(editor, "InputEdit"), Qt::Key_Enter);
        });
        EXPECT_EQ(b.data("01-00"), "75.50");
    }
};

TEST_P(DialogSession, ReadEditWriteReadBack) {
    const QString model = QString::fromLatin1(familyName(GetParam()));
    b.session.reader.ReadDriveTransparentButtonClick();
    EXPECT_FALSE(b.progress.isVisible()) << "no window for what takes a moment";
    b.clock.advance(300);
    EXPECT_TRUE(b.progress.isVisible() && b.progress.isModal());
    EXPECT_EQ(textOf(b.progress, "InfoLabel"), "Reading parameters from " + model + " ...");
    const int rows = b.session.progress.count + 1;
    ASSERT_TRUE(b.readRows(rows));
    EXPECT_EQ(textOf(b.progress, "ParaLabel"), b.session.progress.ParaLabel);
    EXPECT_EQ(textOf(b.progress, "CountLabel"),
              QStringLiteral("%1 of %2").arg(rows).arg(b.session.progress.total));
    EXPECT_TRUE(textOf(b.progress, "LeftLabel").endsWith(" s left"));
    ASSERT_TRUE(b.runUntil([&] { return !b.progress.isVisible(); }));
    EXPECT_EQ(b.session.reader.DriveTableComplete, 1);

    editTwoRows();
    b.session.WriteCheckTransparentButtonClick();
    ASSERT_TRUE(b.writeCheck.isVisible() && b.writeCheck.isModal());
    EXPECT_EQ(b.list.RowCount(), 3);
    EXPECT_EQ(textOf(b.writeCheck, "SummaryLabel"), "2 of 2 differ from what the drive held");
    b.expectEditor([](TInputValueForm& editor) {
        QTest::keyClicks(&part(editor, "InputEdit"), "76");
        press(editor, "OKTransparentButton");
    });
    QTest::mouseDClick(b.listView().viewport(), Qt::LeftButton, {}, b.cellAt(column::Data, 2));
    EXPECT_EQ(b.list.cell(column::Data, 2), "76.00");

    // The drive runs: it takes the display, which may be set then, and refuses the frequency.
    b.station.drive.motor().run();
    b.station.port.clearTranscript();
    b.person.expectBox(WriteQuestion, "Cofirm", BoxAnswer::Yes);
    press(b.writeCheck, "OKTransparentButton");
    for (const char* name : {"AdvStringGrid1", "OKTransparentButton", "CancelTransparentButton"})
        EXPECT_FALSE(part(b.writeCheck, name).isEnabled()) << name;
    b.runUntil([&] { return textOf(b.writeCheck, "PrLabel") == "Pr. 01-00   Max Output Freq."; });
    EXPECT_EQ(textOf(b.writeCheck, "PrLabel"), "Pr. 01-00   Max Output Freq.");

    ASSERT_TRUE(b.runUntil([&] { return b.errorRecord.isVisible(); }));
    const StringGrid& record = *part<StringGridView>(b.errorRecord, "ErrorAdvStringGrid").grid();
    EXPECT_EQ(record.RowCount(), 3);
    EXPECT_EQ(record.cell(1, 1), "01-00");
    EXPECT_FALSE(record.cell(5, 1).trimmed().isEmpty());
    press(b.errorRecord, "CloseTransparentButton");

    EXPECT_TRUE(b.session.progress.shown);
    ASSERT_TRUE(b.runUntil([&] { return !b.writeCheck.isVisible(); }));
    EXPECT_FALSE(b.progress.isVisible());
    EXPECT_EQ(b.data("00-03"), "2");
    EXPECT_EQ(b.data("01-00"), "60.00");
    EXPECT_EQ(b.station.drive.word(0x0003), 2);

    QStringList wire = b.station.port.transcript();
    wire.removeIf([](const QString& command) { return command.startsWith("FF0333"); });
    QStringList told{"FF0600030002", "FF0601001DB0", "FF0300030001", "FF0301000001"};
    if (GetParam() != Family::Aspen) {
        told.insert(0, "FF0620050003");
        told.insert(3, "FF0620050005");
    }
    EXPECT_EQ(wire, told);
}

INSTANTIATE_TEST_SUITE_P(Families, DialogSession, testing::Values(Family::Larch, Family::Aspen),
                         [](const auto& test) { return std::string(familyName(test.param)); });

// ---- Progress ----

TEST(ProgressForm, OnlyTheAnswerYesClosesIt) {
    DialogBench b;
    b.session.reader.ReadDriveTransparentButtonClick();
    b.clock.advance(300);
    const auto cancelAndAnswer = [&](const std::function<void()>& cancel, BoxAnswer answer) {
        cancel();
        EXPECT_TRUE(b.progress.isVisible());  // it only sets the mark
        b.person.expectBox(StopQuestion, "Cofirm", answer);
        const int before = b.session.progress.count;
        b.runUntil([&] { return b.person.allAsked(); });
        EXPECT_EQ(b.session.progress.count, before + 1);
    };
    cancelAndAnswer([&] { press(b.progress, "CancelTransparentButton"); }, BoxAnswer::No);
    EXPECT_TRUE(b.progress.isVisible());
    cancelAndAnswer([&] { QTest::keyClick(&b.progress, Qt::Key_Escape); }, BoxAnswer::No);
    ASSERT_TRUE(b.readRows(std::max(10, b.session.progress.count)));
    cancelAndAnswer([&] { b.progress.close(); }, BoxAnswer::Yes);
    EXPECT_FALSE(b.progress.isVisible());
    EXPECT_EQ(textOf(b.progress, "ParaLabel"), "");
    EXPECT_EQ(b.session.reader.DriveTableComplete, 0);
    for (int N = 0; N < 10; ++N)  // behind the group's row, none lost and none double
        EXPECT_EQ(b.table.cell(column::PrNo, N + 2), QStringLiteral("00-0%1").arg(N));
}

// What takes no longer than a moment shows no window; until one is there the window below is deaf.
TEST(ProgressForm, NeverFlashes) {
    DialogBench b;
    b.readTable();
    b.table.setCheckBox(rowOfNumber(b.table, "01-00"), true);
    b.session.WriteCheckTransparentButtonClick();
    b.session.progress.show("Saving ...", 10, 10, 400);
    b.clock.advance(299);
    EXPECT_FALSE(b.progress.isVisible());
    press(b.writeCheck, "CancelTransparentButton");
    QTest::keyClick(&b.writeCheck, Qt::Key_Escape);
    EXPECT_TRUE(b.writeCheck.isVisible()) << "a key or click on the window below does nothing";
    b.session.progress.close();
    b.clock.advance(1000);
    EXPECT_FALSE(b.progress.isVisible());
    QTest::keyClick(&b.writeCheck, Qt::Key_Escape);
    EXPECT_FALSE(b.writeCheck.isVisible());
}

// A refusal ends no wait; after three seconds at rest the dialog says so and lets the person out.
TEST(ProgressForm, KeepsWaitingAfterARefusalButLocksNobodyIn) {
    DialogBench b;
    b.station.line.faults().failAt(6, drive::LineFault::Exception);
    b.session.reader.ReadDriveTransparentButtonClick();
    ASSERT_TRUE(b.runUntil([&] { return !b.session.progress.noAnswer.isEmpty(); }));
    QCoreApplication::processEvents();
    EXPECT_TRUE(
        textOf(b.progress, "NoAnswerLabel").startsWith("No answer is coming for Pr 00-05: refused, CE 4"))
        << textOf(b.progress, "NoAnswerLabel").toStdString();
    b.station.port.clearTranscript();
    press(b.progress, "CancelTransparentButton");
    b.clock.advance(60000);
    EXPECT_TRUE(b.progress.isVisible() && b.station.port.writes().isEmpty());
    ASSERT_TRUE(part(b.progress, "StopWaitingTransparentButton").isVisible());
    press(b.progress, "StopWaitingTransparentButton");
    EXPECT_FALSE(b.progress.isVisible());
    EXPECT_EQ(b.session.reader.DriveTableComplete, 0);
    EXPECT_EQ(b.table.cell(column::PrNo, 6), "00-04") << "what was read stays";
    EXPECT_TRUE(b.link.Lamp.onLine() && b.link.TaskQueue.empty());
    b.session.reader.ReadDriveTransparentButtonClick();
    ASSERT_TRUE(b.runUntil([&] { return b.session.reader.DriveTableComplete == 1; }));
    EXPECT_FALSE(part(b.progress, "StopWaitingTransparentButton").isVisibleTo(&b.progress));
}

// ---- Write list ----

class WriteList : public testing::Test {
   protected:
    WriteList() {
        b.readTable();
        for (const char* PrNo : {"00-01", "00-03", "01-00", "01-09"})  // the first is only to be read
            b.table.setCheckBox(rowOfNumber(b.table, PrNo), true);
        b.session.WriteCheckTransparentButtonClick();
        QCoreApplication::processEvents();
    }
    QList<bool> checks() {
        QList<bool> set;
        for (int row = 1; row < b.list.RowCount(); ++row) set += b.list.checkBox(row);
        return set;
    }
    void clickBox(int row) {
        QTest::mouseClick(b.listView().viewport(), Qt::LeftButton, {}, b.cellAt(column::Check, row));
    }
    void clickHeaderBox() {
        QTest::mouseClick(b.listView().horizontalHeader()->viewport(), Qt::LeftButton, {}, QPoint(10, 8));
    }
    DialogBench b;
};

TEST_F(WriteList, BoxesFollowTheMouseAndKeysChangeNothing) {
    const QList<bool> all{true, true, true, true};
    ASSERT_EQ(checks(), all);
    EXPECT_TRUE(b.list.checkBox(0));
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_F2, Qt::Key_7, Qt::Key_Delete})
        QTest::keyClick(&b.listView(), key);
    EXPECT_EQ(checks(), all);
    EXPECT_TRUE(b.writeCheck.isVisible());
    clickHeaderBox();
    EXPECT_EQ(checks(), (QList<bool>{true, false, false, false}));
    clickBox(1);
    clickBox(3);
    EXPECT_EQ(checks(), (QList<bool>{false, false, true, false}));
    QCoreApplication::processEvents();
    EXPECT_EQ(textOf(b.writeCheck, "SummaryLabel"), "0 of 1 differ from what the drive held");
    clickBox(3);
    b.person.expectBox("There is no item selected !", "Cofirm");
    press(b.writeCheck, "OKTransparentButton");
    for (const int hidden : {10, 11, 12}) EXPECT_TRUE(b.listView().isColumnHidden(hidden));
}

TEST_F(WriteList, RowsThatRunningForbidsDifferByMoreThanTheirColour) {
    b.list.cellColours = {};
    for (int c = column::PrNo; c < column::RunSet; ++c) b.list.setCell(c, 2, b.list.cell(c, 3));
    b.listView().clearSelection();
    b.listView().setCurrentIndex({});
    const auto picture = [&](int row) {
        const QRect cell = b.listView().visualRect(b.list.index(row - 1, column::Description));
        return b.listView().viewport()->grab(cell).toImage();
    };
    ASSERT_EQ(b.list.cell(column::RunSet, 2), "true");
    EXPECT_NE(picture(2), picture(3));
    b.list.setCell(column::RunSet, 2, "false");
    EXPECT_EQ(picture(2), picture(3));
}

// ---- Value editor ----

class ValueEditor : public testing::Test {
   protected:
    void open(int min, int max, int dot, const QString& text) {
        edit = {.PrInforVrLabel = "01-00: Max Output Freq.",
                .UnitVrLabel = "Hz",
                .InputOldText = text,
                .Text = {},
                .InputMin = min,
                .InputMax = max,
                .InputDefault = 0,
                .InputDot = dot,
                .fromList = dot == 0 && max < 10 && min >= 0,
                .InputAccepted = true};
        form.prepare(edit)->show();
        EXPECT_FALSE(edit.InputAccepted);
    }
    void type(const QString& text) {
        input.selectAll();
        QTest::keyClick(&input, Qt::Key_Backspace);
        QTest::keyClicks(&input, text);
    }
    LangTable lang = LangTable::builtInEnglish();
    ScriptedOperator person;
    TInputValueForm form{person, lang};
    QLineEdit& input = part<QLineEdit>(form, "InputEdit");
    QComboBox& list = part<QComboBox>(form, "InputComboBox");
    ValueEdit edit;
};

TEST_F(ValueEditor, TakesFiguresOnlyAndRefusesWithABoxAndTheOldText) {
    const UsingDecimalSep point(QStringLiteral("."));
    open(5000, 60000, 2, "60.00");
    type("-1a2 +.x,3e");
    EXPECT_EQ(input.text(), "-12.,3") << "figures and signs only";
    input.clear();
    input.insert("12 rpm");
    EXPECT_EQ(input.text(), "");
    const struct {
        const char* typed;
        const char* text;
        const char* title;
        bool selected;
    } refusals[] = {
        {"", "Value is not Legal !! Please check it ...", "Error", false},
        {"1-2", "Value is not Legal !! Please check it ...", "Error Message", true},
        {"49.99", "Value is too small !! Please check it ...", "Error", true},
        {"600.01", "Value is too large !! Please check it ...", "Error", true},
    };
    for (const auto& refusal : refusals) {
        type(refusal.typed);
        person.expectBox(refusal.text, refusal.title);
        part(form, "OKTransparentButton").setFocus();
        press(form, "OKTransparentButton");
        EXPECT_EQ(form.focusWidget() == &input, refusal.selected) << refusal.typed;
        EXPECT_EQ(person.lastIcon, BoxIcon::Stop);
        EXPECT_EQ(input.text(), "60.00");
        EXPECT_EQ(input.hasSelectedText(), refusal.selected) << refusal.typed;
        EXPECT_TRUE(form.isVisible() && !edit.InputAccepted);
    }
    type("600");
    QTest::keyClick(&input, Qt::Key_Return);
    EXPECT_FALSE(form.isVisible());
    EXPECT_TRUE(edit.InputAccepted);
    EXPECT_EQ(edit.Text, "600.00");
}

TEST_F(ValueEditor, KeepsTheMarkThatEnterOnTheListSetsFirst) {
    open(3, 7, 0, "9");
    EXPECT_EQ(list.currentIndex(), -1);
    person.expectBox("Value is not Legal !! Please check it ...", "Error");
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_TRUE(form.isVisible());
    form.close();
    EXPECT_TRUE(edit.InputAccepted);
    EXPECT_EQ(edit.Text, "9");
}

// ---- Choices ----

TEST(SelForms, BeginWithTheOneAskedForAndAnswerOnlyByOk) {
    TSelParaSourceForm source;
    std::vector<std::optional<TableSide>> sides;
    const auto keepSide = [&](std::optional<TableSide> side) { sides.push_back(side); };
    source.ask("Select Parameter Source to Write", keepSide);
    EXPECT_TRUE(source.isModal());
    EXPECT_EQ(textOf(source, "VrLabel1"), "Select Parameter Source to Write");
    press(source, "FileAbLED");
    press(source, "OKTransparentButton");
    source.ask({}, keepSide);
    source.light(TableSide::Drive);
    QTest::keyClick(&part(source, "DriveAbLED"), Qt::Key_Return);
    source.ask({}, keepSide);
    source.close();
    using Side = std::optional<TableSide>;
    EXPECT_EQ(sides, (std::vector<Side>{TableSide::File, TableSide::Drive, std::nullopt}));

    TSelFileFormatForm format;
    std::vector<std::optional<TableFileKind>> kinds;
    for (const char* lamp : {"TxtAbLED", "CsvAbLED", "ExcelAbLED"}) {
        format.ask([&](std::optional<TableFileKind> kind) { kinds.push_back(kind); });
        press(format, lamp);
        press(format, "OKTransparentButton");
    }
    using Kind = std::optional<TableFileKind>;
    EXPECT_EQ(kinds,
              (std::vector<Kind>{TableFileKind::Text, TableFileKind::Csv, TableFileKind::Spreadsheet}));

    std::vector<std::optional<QString>> answers;
    const auto keep = [&](std::optional<QString> answer) { answers.push_back(answer); };
    TSelCompKindForm kind;
    kind.ask(compareKinds(true, true), keep);
    part<QComboBox>(kind, "ParameterComboBox").setCurrentIndex(2);
    press(kind, "OKTransparentButton");
    kind.ask(compareKinds(false, true), keep);
    kind.ask(compareKinds(true, false), keep);  // the question before it is cancelled
    QTest::keyClick(&kind, Qt::Key_Escape);
    TSelParaPrintForm table;
    table.ask("Select Parameter Source to Save", {"Table from Drive", "Table from File"}, 1, keep);
    press(table, "OKTransparentButton");
    using Answer = std::optional<QString>;
    EXPECT_EQ(answers, (std::vector<Answer>{DriveVsFile, std::nullopt, std::nullopt, "Table from File"}));
}

}  // namespace

}  // namespace kelvane

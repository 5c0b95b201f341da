// Parameter Management.
#include <QFileInfo>
#include <QLineEdit>
#include <QProgressBar>
#include <QTreeWidget>

#include "link/number_text.h"
#include "parameters/table/table_edit.h"
#include "tour/walk.h"
#include "ui/find_bar.h"
#include "ui/string_grid_view.h"

namespace kelvane::tour {

namespace {

constexpr int ReadMs = 120000;

}  // namespace

StringGridView& Walk::driveView() { return m_hand.find<StringGridView>(m_parameters, "DriveAdvStringGrid"); }

// A number with room between its limits that is typed into the editor; -1 when the family has none.
int Walk::editableRow(bool whileRunning) const {
    const QString runSet = whileRunning ? QStringLiteral("true") : QStringLiteral("false");
    for (int row = 1; row < m_table.RowCount(); ++row) {
        if (isGroupRow(m_table, row) || m_table.cell(column::RunSet, row) != runSet) continue;
        const std::optional<ValueEdit> edit = valueEditOf(m_table, row);
        if (edit && !edit->fromList && edit->InputMax - edit->InputMin > 10 && edit->InputMax < 60000 &&
            edit->InputDot > 0)
            return row;
    }
    return -1;
}

// Neither the present value nor the default.
QString Walk::otherValue(int row) const {
    const ValueEdit edit = *valueEditOf(m_table, row);
    const int present = withoutSeparatorToInt(edit.InputOldText).value_or(edit.InputMin);
    int other = edit.InputMin + 1;
    while (other == present || other == edit.InputDefault) ++other;
    return InsertDecimalPoint(QString::number(other), edit.InputDot);
}

bool Walk::driveHolds(int row) const {
    const quint16 reg = m_table.cell(column::Address, row).toUShort(nullptr, 16);
    const std::optional<uint16_t> held = m_drive.word(reg);
    return held && withoutSeparatorToInt(m_table.cell(column::Data, row)) == *held;
}

void Walk::openParameters() {
    m_script.step(QStringLiteral("Open Parameter Management; polling rests"));
    m_hand.click(m_main, "ParameterTransparentButton");
    m_hand.waitForWindow(m_parameters, true);
    m_hand.pause(200);
    const quint64 replies = m_stage.practice.lineOf(m_family).faults().replies();
    m_hand.pause(500);
    check(m_stage.practice.lineOf(m_family).faults().replies() == replies,
          QStringLiteral("the tool still polls"));
    m_script.keepPicture(m_parameters, QStringLiteral("parameters-empty"));
}

void Walk::readDrive() {
    m_script.step(QStringLiteral("Read Drive; Cancel, answered No"));
    TProgressForm& progress = m_windows.progressForm;
    m_hand.click(m_parameters, "ReadDriveTransparentButton");
    m_hand.waitForWindow(progress, true);
    const auto& bar = m_hand.find<QProgressBar>(progress, "ReadingProgressBar");
    m_hand.waitFor(
        QStringLiteral("a quarter of the table"), [&bar] { return bar.value() * 4 >= bar.maximum(); },
        ReadMs);
    m_script.keepPicture(progress, QStringLiteral("reading"));
    m_answers.expectBox(QStringLiteral("Are you sure terminate ?"), QMessageBox::No,
                        QStringLiteral("terminate"));
    m_hand.click(progress, "CancelTransparentButton");
    m_hand.waitForAnswers();
    m_hand.waitFor(
        QStringLiteral("the end of the read"),
        [this] { return m_stage.tool->parameters.reader.DriveTableComplete != 0; }, ReadMs);
    m_hand.waitForWindow(progress, false);
    int parameters = 0;
    for (int group = 0; group < m_drive.parameters().groupCount(); ++group)
        parameters += m_drive.parameters().highestNumber(group).value_or(0) + 1;
    int rows = 0;
    for (int row = 1; row < m_table.RowCount(); ++row) rows += !isGroupRow(m_table, row);
    check(rows == parameters, QStringLiteral("%1 rows for %2 parameters").arg(rows).arg(parameters));
    m_script.keepPicture(m_parameters, QStringLiteral("table"));
}

void Walk::pickGroup() {
    m_script.step(QStringLiteral("Tree: pick a group, and all again"));
    auto& tree = m_hand.find<QTreeWidget>(m_parameters, "ParaTreeView");
    QTreeWidgetItem& root = *tree.topLevelItem(0);
    check(root.childCount() > 0, QStringLiteral("the tree has no children"));
    auto& sub = m_hand.find<StringGridView>(m_parameters, "SubDriveAdvStringGrid");
    if (root.childCount() > 2) {
        m_hand.clickItem(*root.child(2));
        check(sub.isVisible() && sub.grid()->RowCount() > 1,
              QStringLiteral("the group's table did not come"));
        m_script.keepPicture(m_parameters, QStringLiteral("group"));
    }
    m_hand.clickItem(*root.child(0));
    check(driveView().isVisible(), QStringLiteral("the whole table did not come back"));
}

void Walk::findInTable() {
    m_script.step(QStringLiteral("Find bar: \"freq\""));
    m_hand.key(driveView(), Qt::Key_F, Qt::ControlModifier);
    auto& bar = *m_parameters.findChild<FindBar*>();
    m_hand.waitForWindow(bar, true);
    auto& edit = *bar.findChild<QLineEdit*>();
    m_hand.keys(edit, QStringLiteral("freq"));
    m_hand.key(edit, Qt::Key_Return);
    m_hand.key(edit, Qt::Key_Return);
    check(bar.hitCount() > 1 && driveView().currentHit().row > 0, QStringLiteral("nothing was found"));
    m_script.keepPicture(m_parameters, QStringLiteral("find"));
    m_hand.key(edit, Qt::Key_Escape);
    m_hand.waitForWindow(bar, false);
}

// Through the value editor: first too large, then a good one.
void Walk::edit(int row, const QString& picture) {
    const ValueEdit limits = *valueEditOf(m_table, row);
    const QString tooLarge = InsertDecimalPoint(QString::number(limits.InputMax + 1), limits.InputDot);
    const QString wanted = otherValue(row);
    m_answers.expectWindow(QStringLiteral("TInputValueForm"), [&](QWidget& editor) {
        auto& line = m_hand.find<QLineEdit>(editor, "InputEdit");
        if (!picture.isEmpty()) {
            m_script.keepPicture(editor, picture);
            m_answers.expectBox(QStringLiteral("Value is too large"), QMessageBox::Ok,
                                QStringLiteral("too-large"));
            line.selectAll();
            m_hand.keys(line, tooLarge);
            m_hand.key(line, Qt::Key_Return);
        }
        line.selectAll();
        m_hand.keys(line, wanted);
        m_hand.click(editor, "OKTransparentButton");
    });
    m_hand.doubleClickCell(driveView(), column::Data, row);
    m_hand.waitForAnswers();
    check(m_table.cell(column::Data, row) == wanted && m_table.checkBox(row),
          QStringLiteral("%1 was not taken over").arg(wanted));
}

void Walk::editValue() {
    m_script.step(QStringLiteral("Edit a value: too large, then a good one"));
    const int row = editableRow(true);
    check(row > 0, QStringLiteral("no row can be edited"));
    edit(row, QStringLiteral("editor"));
    m_script.keepPicture(m_parameters, QStringLiteral("edited"));
}

void Walk::undoAndRedo() {
    m_script.step(QStringLiteral("Undo and redo"));
    const int row = editableRow(true);
    const QString edited = m_table.cell(column::Data, row);
    m_hand.key(driveView(), Qt::Key_Z, Qt::ControlModifier);
    check(m_table.cell(column::Data, row) != edited, QStringLiteral("the edit was not undone"));
    m_hand.key(driveView(), Qt::Key_Y, Qt::ControlModifier);
    check(m_table.cell(column::Data, row) == edited, QStringLiteral("the edit was not done again"));
}

void Walk::writeSelect() {
    m_script.step(QStringLiteral("Write Select: OK, Yes, read back"));
    TWriteCheckForm& list = m_windows.writeCheckForm;
    const int row = editableRow(true);
    check(!driveHolds(row), QStringLiteral("the drive holds the value before it is written"));
    m_hand.click(m_parameters, "WriteCheckTransparentButton");
    m_hand.waitForWindow(list, true);
    m_script.keepPicture(list, QStringLiteral("write-check"));
    m_answers.expectBox(QStringLiteral("Do you want to write the parameter(s) to drive ?"), QMessageBox::Yes,
                        QStringLiteral("write-question"));
    m_hand.click(list, "OKTransparentButton");
    m_hand.waitForAnswers();
    m_hand.waitForWindow(list, false, 20000);
    check(driveHolds(row), QStringLiteral("the drive does not hold the value"));
}

void Walk::writeWhileRunning() {
    const int row = editableRow(false);
    if (row < 0) return;
    m_script.step(QStringLiteral("The motor runs: the drive refuses, error record"));
    m_drive.motor().setCommandHz(30);
    m_drive.motor().run();
    edit(row);
    TWriteCheckForm& list = m_windows.writeCheckForm;
    TWriteCheckErrRecordForm& record = m_windows.writeCheckErrRecordForm;
    m_hand.click(m_parameters, "WriteCheckTransparentButton");
    m_hand.waitForWindow(list, true);
    m_script.keepPicture(list, QStringLiteral("write-check-locked"));
    m_answers.expectBox(QStringLiteral("Do you want to write the parameter(s) to drive ?"), QMessageBox::Yes);
    m_hand.click(list, "OKTransparentButton");
    m_hand.waitForAnswers();
    m_hand.waitForWindow(record, true, 20000);
    m_script.keepPicture(record, QStringLiteral("error-record"));
    m_hand.click(record, "CloseTransparentButton");
    m_hand.waitForWindow(list, false, 20000);
    m_drive.motor().stop();
    check(driveHolds(row), QStringLiteral("the list does not show what the drive holds"));
}

void Walk::compare(const QString& kind, const QString& picture) {
    TSelCompKindForm& choice = m_windows.selCompKindForm;
    m_hand.click(m_parameters, "CompareTransparentButton");
    m_hand.waitForWindow(choice, true);
    m_hand.chooseText(choice, "ParameterComboBox", kind);
    if (picture == QLatin1String("comparison-file"))
        m_script.keepPicture(choice, QStringLiteral("compare-kind"));
    m_hand.click(choice, "OKTransparentButton");
    auto& result = m_hand.find<StringGridView>(m_parameters, "CompareAdvStringGrid");
    m_hand.waitForWindow(result, true);
    check(m_hand.text(m_parameters, "CompKindLabel") == kind && result.grid()->RowCount() > 2,
          QStringLiteral("the result is empty"));
    m_script.keepPicture(m_parameters, picture);
}

void Walk::compareWithDefaults() {
    m_script.step(QStringLiteral("Compare: Drive vs. default"));
    compare(QStringLiteral("Drive vs. default"), QStringLiteral("comparison-default"));
}

void Walk::chooseTable(const char* button, const QString& picture) {
    TSelParaPrintForm& choice = m_windows.selParaPrintForm;
    m_hand.click(m_parameters, button);
    m_hand.waitForWindow(choice, true);
    m_hand.chooseText(choice, "ParameterComboBox", QStringLiteral("Table from Drive"));
    if (!picture.isEmpty()) m_script.keepPicture(choice, picture);
    m_hand.click(choice, "OKTransparentButton");
}

void Walk::saveAndRead(const QString& format, const char* lamp, const QString& suffix) {
    m_script.step(QStringLiteral("Save as %1, and Read File of it").arg(format));
    const bool first = suffix == QLatin1String(".txt");
    const QString name = file(QStringLiteral("table"));
    TSelFileFormatForm& formats = m_windows.selFileFormatForm;
    chooseTable("SaveTransparentButton", first ? QStringLiteral("save-what") : QString());
    m_hand.waitForWindow(formats, true);
    m_hand.click(formats, lamp);
    if (first) m_script.keepPicture(formats, QStringLiteral("save-format"));
    m_answers.expectFile(name, first ? QStringLiteral("save-dialog") : QString());
    m_hand.click(formats, "OKTransparentButton");
    m_hand.waitForAnswers();
    check(QFileInfo(name + suffix).size() > 0, QStringLiteral("there is no ") + name + suffix);
    m_answers.expectFile(name + suffix, first ? QStringLiteral("open-dialog") : QString());
    m_hand.click(m_parameters, "ReadFileTransparentButton");
    m_hand.waitForAnswers();
    const StringGrid& loaded = m_stage.tool->parameters.fileTable.grid;
    check(loaded.RowCount() == m_table.RowCount(),
          QStringLiteral("the file has %1 rows of %2").arg(loaded.RowCount()).arg(m_table.RowCount()));
    for (int row = 1; row < loaded.RowCount(); ++row)
        check(loaded.cell(column::Data, row) == m_table.cell(column::Data, row),
              QStringLiteral("another value in row %1 of the file").arg(row));
    if (!first) return;
    check(m_hand.find<QWidget>(m_parameters, "FileAdvStringGrid").isVisible(),
          QStringLiteral("no file table"));
    m_script.keepPicture(m_parameters, QStringLiteral("file-table"));
}

void Walk::compareWithFile() {
    m_script.step(QStringLiteral("Edit, and compare: Drive vs. File"));
    m_hand.clickItem(*m_hand.find<QTreeWidget>(m_parameters, "ParaTreeView").topLevelItem(0)->child(0));
    edit(editableRow(true));
    compare(QStringLiteral("Drive vs. File"), QStringLiteral("comparison-file"));
}

void Walk::hideColumn() {
    m_script.step(QStringLiteral("View menu: hide a column, and show it again"));
    const QStringList menus{QStringLiteral("ViewMenu"), QStringLiteral("HideColumn")};
    m_hand.choose(m_parameters, menus, "HideMODBUS", QStringLiteral("hide-column"));
    check(m_table.columnHidden(column::MODBUS), QStringLiteral("the column is still there"));
    m_script.keepPicture(m_parameters, QStringLiteral("column-hidden"));
    m_hand.choose(m_parameters, menus, "HideMODBUS");
    check(!m_table.columnHidden(column::MODBUS), QStringLiteral("the column did not come back"));
}

void Walk::print() {
    m_script.step(QStringLiteral("Print preview and PDF"));
    chooseTable("PrintTransparentButton");
    TReportForm& preview = m_windows.reportForm;
    m_hand.waitForWindow(preview, true);
    m_hand.pause(300);
    m_script.keepPicture(preview, QStringLiteral("print-preview"));
    m_answers.expectFile(file(QStringLiteral("table")));
    m_hand.click(preview, "PdfTransparentButton");
    m_hand.waitForAnswers();
    check(QFileInfo(file(QStringLiteral("table.pdf"))).size() > 0, QStringLiteral("there is no table.pdf"));
    m_hand.click(preview, "ExitTransparentButton");
    m_hand.waitForWindow(preview, false);
}

void Walk::closeTab() {
    m_script.step(QStringLiteral("Close the comparison and the table from file"));
    const QStringList menus{QStringLiteral("FileMenu")};
    m_hand.choose(m_parameters, menus, "CloseTab", QStringLiteral("file-menu"));
    const ParameterScreen& screen = m_stage.tool->parameters.screen;
    check(!screen.CompareTabSheetVisible, QStringLiteral("the comparison is still open"));
    m_hand.clickItem(*m_hand.find<QTreeWidget>(m_parameters, "ParaTreeView").topLevelItem(1)->child(0));
    m_answers.expectBox(QStringLiteral("Do you want to save the parameter table before close ?"),
                        QMessageBox::No);
    m_hand.choose(m_parameters, menus, "CloseTab");
    m_hand.waitForAnswers();
    check(!screen.FileTabSheetVisible && screen.DriveTabSheetVisible,
          QStringLiteral("another table was closed"));
}

void Walk::closeParameters() {
    m_script.step(QStringLiteral("Close the window; polling goes on"));
    m_hand.click(m_parameters, "ExitTransparentButton");
    m_hand.waitForWindow(m_parameters, false);
    const quint64 replies = m_stage.practice.lineOf(m_family).faults().replies();
    m_hand.waitFor(QStringLiteral("the tool to poll again"),
                   [&] { return m_stage.practice.lineOf(m_family).faults().replies() > replies + 3; });
    check(m_hand.text(m_main, "ComStatusAbLED") == QLatin1String("On Line"),
          QStringLiteral("the lamp is not on line"));
}

}  // namespace kelvane::tour

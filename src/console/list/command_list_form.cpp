#include "console/list/command_list_form.h"

#include <QHeaderView>
#include <QVBoxLayout>

#include "console/connection/console_fields_form.h"
#include "ui/editable_grid_view.h"
#include "ui/named.h"

namespace kelvane {

CommandListPage::CommandListPage(AdvanceConsole& console, QWidget* parent)
    : QWidget(parent), m_console(console) {
    CmdAdvStringGrid = named<EditableGridView>("CmdAdvStringGrid", this);
    CmdAdvStringGrid->setAccessibleName(QStringLiteral("Command list"));
    CmdAdvStringGrid->setGrid(&m_console.list.CmdAdvStringGrid);
    CmdAdvStringGrid->setColumnCharacters({4, 22, 26, 24, 12});
    CmdAdvStringGrid->setStretchColumn(CommandList::NoteColumn);
    CmdAdvStringGrid->tidy = [](int column, const QString& text) {
        return column == CommandList::NoteColumn ? text : raised(text);
    };
    auto* column = new QVBoxLayout(this);
    column->addWidget(CmdAdvStringGrid);
    connect(CmdAdvStringGrid, &StringGridView::checkBoxClicked, this,
            [this](int row, bool set) { m_console.list.clickCheckBox(row, set); });
    connect(CmdAdvStringGrid, &StringGridView::checkBoxesWanted, this,
            [this](const std::vector<int>& rows, bool set) {
                for (const int row : rows) m_console.list.clickCheckBox(row, set);
            });
    connect(CmdAdvStringGrid->horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int section) {
        if (section == CommandList::DataColumn) m_console.list.toggleFormat();
    });
    CmdAdvStringGrid->horizontalHeader()->setSectionsClickable(true);
    CmdAdvStringGrid->horizontalHeader()->setToolTip(FormatHint);
    connect(&m_console.list, &CommandList::rowSent, this,
            [this](int row) { CmdAdvStringGrid->setCurrentCell(CommandList::CommandColumn, row); });
    showState();
}

int CommandListPage::currentRow() const { return CmdAdvStringGrid->currentCell().row; }

void CommandListPage::showState() { CmdAdvStringGrid->setEnabled(!m_console.list.running()); }

}  // namespace kelvane

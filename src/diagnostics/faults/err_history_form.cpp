#include "diagnostics/faults/err_history_form.h"

#include <QBoxLayout>
#include <QClipboard>
#include <QGuiApplication>
#include <QScreen>

#include "ui/icons.h"
#include "ui/named.h"
#include "ui/string_grid_view.h"
#include "ui/tab_order.h"
#include "ui/transparent_button.h"

namespace kelvane {

namespace {

constexpr int DescriptionColumn = 2;
constexpr int LinesHigh = 24;

}  // namespace

TErrHistoryForm::TErrHistoryForm(FaultHistory& history, QWidget* parent)
    : QDialog(parent),
      m_history(history),
      ErrorAdvStringGrid(named<StringGridView>("ErrorAdvStringGrid", this)),
      m_copy(
          button("CopyTransparentButton", int(Icon::Copy), tr("Copy"), tr("Copy the list to the clipboard"))),
      m_save(button("SaveTransparentButton", int(Icon::Save), tr("Save"), tr("Save the list to a file"))) {
    setObjectName(QStringLiteral("TErrHistoryForm"));
    setWindowTitle(tr("Error History"));
    setWindowModality(Qt::ApplicationModal);
    ErrorAdvStringGrid->setGrid(&m_history.ErrorAdvStringGrid);
    ErrorAdvStringGrid->setAccessibleName(tr("Faults since the program was started"));
    ErrorAdvStringGrid->setColumnCharacters({5, 12, 30, 24});
    ErrorAdvStringGrid->setStretchColumn(DescriptionColumn);
    auto* clear = button("ClearTransparentButton", int(Icon::Clear), tr("Clear"), tr("Empty the list"));
    auto* exit = button("ExitTransparentButton", int(Icon::Exit), tr("Exit"), tr("Close this window"));
    auto* row = new QHBoxLayout;
    for (TransparentButton* made : {m_copy, m_save, clear}) row->addWidget(made);
    row->addStretch();
    row->addWidget(exit);
    auto* column = new QVBoxLayout(this);
    column->addLayout(row);
    column->addWidget(ErrorAdvStringGrid, 1);
    tabThroughFromStart(*this, {m_copy, m_save, clear, exit, ErrorAdvStringGrid});
    connect(m_copy, &QToolButton::clicked, this, &TErrHistoryForm::copy);
    connect(m_save, &QToolButton::clicked, &m_history, &FaultHistory::save);
    connect(clear, &QToolButton::clicked, &m_history, &FaultHistory::ClearTransparentButtonClick);
    connect(exit, &QToolButton::clicked, this, &QDialog::accept);
    connect(&m_history, &FaultHistory::changed, this, &TErrHistoryForm::showCount);
    const QMargins edge = column->contentsMargins();
    const QSize whole(ErrorAdvStringGrid->wholeWidth() + edge.left() + edge.right(),
                      fontMetrics().height() * LinesHigh);
    resize(whole.boundedTo(screen()->availableSize()));
    showCount();
}

TransparentButton* TErrHistoryForm::button(const char* name, int iconNumber, const QString& text,
                                           const QString& hint) {
    auto* made = named<TransparentButton>(name, icon(static_cast<Icon>(iconNumber)), text, this);
    made->setToolTip(hint);
    return made;
}

void TErrHistoryForm::copy() { QGuiApplication::clipboard()->setText(m_history.asText()); }

void TErrHistoryForm::showCount() {
    m_copy->setEnabled(m_history.entries() > 0);
    m_save->setEnabled(m_history.entries() > 0);
}

void TErrHistoryForm::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    ErrorAdvStringGrid->setFocus();
}

}  // namespace kelvane

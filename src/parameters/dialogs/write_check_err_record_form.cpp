#include "parameters/dialogs/write_check_err_record_form.h"

#include <QScreen>
#include <QVBoxLayout>

#include "ui/icons.h"
#include "ui/string_grid_view.h"
#include "ui/transparent_button.h"

namespace kelvane {

namespace {

constexpr int PrNoColumn = 1;
constexpr int TextColumn = 5;
constexpr int LinesHigh = 22;

}  // namespace

TWriteCheckErrRecordForm::TWriteCheckErrRecordForm(ParameterWriter& writer, QWidget* parent)
    : QDialog(parent), m_writer(writer), ErrorAdvStringGrid(new StringGridView(this)) {
    setObjectName(QStringLiteral("TWriteCheckErrRecordForm"));
    setWindowTitle(QStringLiteral("Error Records"));
    setWindowModality(Qt::ApplicationModal);
    ErrorAdvStringGrid->setObjectName(QStringLiteral("ErrorAdvStringGrid"));
    ErrorAdvStringGrid->setAccessibleName(QStringLiteral("Writes that the drive refused"));
    ErrorAdvStringGrid->setGrid(&m_writer.ErrorAdvStringGrid);
    ErrorAdvStringGrid->setColumnCharacters({2, 10, 24, 11, 12, 34});
    ErrorAdvStringGrid->setStretchColumn(TextColumn);
    auto* CloseTransparentButton =
        framedButton("CloseTransparentButton", Icon::Close, QStringLiteral("Close"), this);

    auto* column = new QVBoxLayout(this);
    column->addWidget(ErrorAdvStringGrid, 1);
    column->addWidget(CloseTransparentButton, 0, Qt::AlignRight);
    const QMargins edge = column->contentsMargins();
    const QSize whole(ErrorAdvStringGrid->wholeWidth() + edge.left() + edge.right(),
                      fontMetrics().height() * LinesHigh);
    resize(whole.boundedTo(screen()->availableSize()));
    connect(CloseTransparentButton, &QToolButton::clicked, this, &QDialog::accept);
    connect(this, &QDialog::finished, &m_writer, &ParameterWriter::errorRecordClosed);
    connect(&m_writer, &ParameterWriter::errorRecordWanted, this, &TWriteCheckErrRecordForm::showRecord);
}

void TWriteCheckErrRecordForm::showRecord() {
    ErrorAdvStringGrid->setCurrentCell(PrNoColumn, 1);
    ErrorAdvStringGrid->setFocus();
    show();
}

}  // namespace kelvane

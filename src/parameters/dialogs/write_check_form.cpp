#include "parameters/dialogs/write_check_form.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QProgressBar>
#include <QScreen>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>

#include "parameters/table/table_edit.h"
#include "ui/grid_delegate.h"
#include "ui/icons.h"
#include "ui/named.h"
#include "ui/string_grid_view.h"
#include "ui/transparent_button.h"

namespace kelvane {

namespace {

constexpr int LinesHigh = 34;

// A row that may not be set in running is slanted and bears a lock as well as its red font. Before a value
// stands what the drive held, if that is known and another; behind a doubtful one what would be sent.
class WriteListDelegate : public GridDelegate {
   public:
    WriteListDelegate(StringGridView* view, const ParameterSession& session)
        : GridDelegate(view), m_session(session) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        GridDelegate::paint(painter, option, index);
        if (index.column() != column::PrNo || !runningForbids(index)) return;
        const int side = option.rect.height() - 6;
        const bool rests = !option.state.testFlag(QStyle::State_Enabled);
        icon(Icon::Lock)
            .paint(painter, QRect(option.rect.right() - side - 2, option.rect.top() + 3, side, side),
                   Qt::AlignCenter, rests ? QIcon::Disabled : QIcon::Normal);
    }

   protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        GridDelegate::initStyleOption(option, index);
        if (runningForbids(index)) option->font.setItalic(true);
        if (index.column() == column::Data) option->text = valueText(index.row() + 1, option->text);
    }

   private:
    QString valueText(int row, const QString& Data) const {
        QString text = Data;
        if (const auto doubt = doubtOf(m_session.writer.AdvStringGrid1, row)) text += u' ' % doubt->text;
        const std::optional<QString> held = m_session.heldByDrive(row);
        return held && *held != Data ? *held % QStringLiteral(" \u2192 ") % text : text;
    }
    const ParameterSession& m_session;
    static bool runningForbids(const QModelIndex& index) {
        return index.siblingAtColumn(column::RunSet).data().toString() == QLatin1String("false");
    }
};

}  // namespace

TWriteCheckForm::TWriteCheckForm(ParameterSession& session, QWidget* parent)
    : QDialog(parent),
      m_session(session),
      m_writer(session.writer),
      AdvStringGrid1(new StringGridView(this)),
      SummaryLabel(plainLabel("SummaryLabel", {}, this)),
      PrLabel(plainLabel("PrLabel", m_writer.form.PrLabel, this)),
      ProgressBar1(new QProgressBar(this)),
      OKTransparentButton(framedButton("OKTransparentButton", Icon::Accept, QStringLiteral("OK"), this)),
      CancelTransparentButton(
          framedButton("CancelTransparentButton", Icon::Cancel, QStringLiteral("Cancel"), this)) {
    setObjectName(QStringLiteral("TWriteCheckForm"));
    setWindowTitle(QStringLiteral("Write Check"));
    setWindowModality(Qt::ApplicationModal);
    buildList();
    build();
    connectList();
    connect(OKTransparentButton, &QToolButton::clicked, &m_writer,
            &ParameterWriter::OKTransparentButtonClick);
    connect(CancelTransparentButton, &QToolButton::clicked, &m_writer,
            &ParameterWriter::CancelTransparentButtonClick);
    connect(&m_writer, &ParameterWriter::changed, this, &TWriteCheckForm::showRecord);
    connect(&m_writer, &ParameterWriter::shownChanged, this, &TWriteCheckForm::follow);
    showRecord();
}

void TWriteCheckForm::buildList() {
    for (const int hidden : {column::Address, column::Dot, column::RunSet})
        m_writer.AdvStringGrid1.setColumnHidden(hidden, true);
    AdvStringGrid1->setObjectName(QStringLiteral("AdvStringGrid1"));
    AdvStringGrid1->setAccessibleName(QStringLiteral("Parameters to write"));
    AdvStringGrid1->setItemDelegate(new WriteListDelegate(AdvStringGrid1, m_session));
    AdvStringGrid1->setGrid(&m_writer.AdvStringGrid1);
    AdvStringGrid1->setKeysAct(false);
    AdvStringGrid1->setColumnCharacters({4, 11, 9, 24, 7, 22, 11, 11, 11, 11});
    AdvStringGrid1->setStretchColumn(column::Description);
    AdvStringGrid1->setRightAligned({column::Data, column::Default, column::Min, column::Max});
}

void TWriteCheckForm::build() {
    ProgressBar1->setObjectName(QStringLiteral("ProgressBar1"));
    ProgressBar1->setAccessibleName(QStringLiteral("Progress of the writes"));
    auto* Label2 = plainLabel("Label2", QStringLiteral("Hint : "), this);
    auto* Label3 = plainLabel(
        "Label3", QStringLiteral("The red color font of parameter(s) means that can't be set in running."),
        this);
    auto* lock = new QLabel(this);
    lock->setPixmap(icon(Icon::Lock).pixmap(fontMetrics().height()));
    lock->setAccessibleName(QStringLiteral("Lock, the mark of such a row"));
    auto* hint = new QHBoxLayout;
    hint->addWidget(Label2);
    hint->addWidget(lock);
    hint->addWidget(Label3, 1);

    auto* state = new QGridLayout;
    state->setColumnStretch(1, 1);
    state->addWidget(plainLabel("Label4", QStringLiteral("Status:"), this), 0, 0);
    state->addWidget(ProgressBar1, 0, 1);
    state->addWidget(plainLabel("Label5", QStringLiteral("Write:"), this), 1, 0);
    state->addWidget(PrLabel, 1, 1);
    auto* foot = new QHBoxLayout;
    foot->setSpacing(fontMetrics().height());
    foot->addLayout(state, 1);
    foot->addWidget(OKTransparentButton, 0, Qt::AlignBottom);
    foot->addWidget(CancelTransparentButton, 0, Qt::AlignBottom);

    SummaryLabel->setWordWrap(true);
    auto* column = new QVBoxLayout(this);
    column->addWidget(
        plainLabel("Label1", QStringLiteral("Please Check the Parameter(s) You want to Write"), this));
    column->addWidget(AdvStringGrid1, 1);
    column->addLayout(hint);
    column->addWidget(SummaryLabel);
    column->addLayout(foot);
    const QMargins edge = column->contentsMargins();
    const QSize whole(AdvStringGrid1->wholeWidth() + edge.left() + edge.right(),
                      fontMetrics().height() * LinesHigh);
    resize(whole.boundedTo(screen()->availableSize()));
}

void TWriteCheckForm::connectList() {
    StringGrid& list = m_writer.AdvStringGrid1;
    connect(AdvStringGrid1, &StringGridView::dblClickCell, this, [this, &list](int column, int row) {
        ProcessAdvStringGridDblClickCell(list, column, row, m_session.site.voice.person);
    });
    // A row's box toggles here in any case, so that a row that is only to be read can be left out.
    connect(AdvStringGrid1, &StringGridView::checkBoxClicked, this, [&list](int row, bool set) {
        row == 0 ? void(clickCheckBox(list, 0)) : list.setCheckBox(row, set);
    });
    connect(&list, &StringGrid::dataChanged, this, &TWriteCheckForm::sumUpLater);
}

void TWriteCheckForm::follow(bool shown) {
    if (shown) {
        m_writer.AdvStringGrid1.addCheckBox(0, true);
        sumUp();
        showRecord();
        AdvStringGrid1->setCurrentCell(column::PrNo, 1);
        // The window is not laid out yet, and the cell alone would push the boxes out of sight.
        AdvStringGrid1->horizontalScrollBar()->setValue(0);
        AdvStringGrid1->setFocus();
    }
    setVisible(shown);
}

void TWriteCheckForm::showRecord() {
    const WriteCheckRecord& form = m_writer.form;
    AdvStringGrid1->setEnabled(form.enabled);
    OKTransparentButton->setEnabled(form.enabled);
    CancelTransparentButton->setEnabled(form.enabled);
    ProgressBar1->setRange(0, std::max(1, form.barMaximum));
    ProgressBar1->setValue(form.barPosition);
    PrLabel->setText(form.PrLabel);
}

void TWriteCheckForm::sumUp() { SummaryLabel->setText(m_session.writeSummaryLine()); }

// Once for all rows that the header's box has changed.
void TWriteCheckForm::sumUpLater() {
    if (m_sumPending) return;
    m_sumPending = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            m_sumPending = false;
            if (m_writer.form.shown) sumUp();
        },
        Qt::QueuedConnection);
}

}  // namespace kelvane

#include "quicksetup/slot_row_form.h"

#include <QComboBox>
#include <QGridLayout>
#include <QWheelEvent>

#include "ui/item_box.h"
#include "ui/named.h"
#include "ui/number_edit.h"

namespace kelvane {

namespace {

constexpr int BoxCharacters = 34;
constexpr int EditCharacters = 9;
const QString ChangedMark = QStringLiteral("\u25CF");
const QString DoubtMark = QStringLiteral("\u26A0");

// A wheel that scrolls past must not choose another function for a terminal.
class CalmBox : public ItemBox {
   public:
    using ItemBox::ItemBox;

   protected:
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

}  // namespace

SlotRowForm::SlotRowForm(QuickSetup& quick, int slot, QWidget* page, QGridLayout& grid)
    : QObject(page), m_quick(quick), m_slot(slot) {
    quickSlot(slot).control == SlotControl::List ? makeBox(page) : makeEdit(page);
    const QByteArray name = quickSlot(slot).name;
    m_label = captionFor(control(), QByteArray(name + "Label").constData(), {}, page);
    m_unit = plainLabel(QByteArray(name + "UnitLabel").constData(), {}, page);
    m_mark = plainLabel(QByteArray(name + "MarkLabel").constData(), {}, page);
    m_mark->setMinimumWidth(m_mark->fontMetrics().height());
    const int row = grid.rowCount();
    grid.addWidget(m_label, row, 0);
    grid.addWidget(control(), row, 1);
    grid.addWidget(m_unit, row, 2);
    grid.addWidget(m_mark, row, 3);
}

QWidget* SlotRowForm::control() const { return m_box ? static_cast<QWidget*>(m_box) : m_edit; }

void SlotRowForm::makeBox(QWidget* page) {
    m_box = new CalmBox(page);
    m_box->setObjectName(slotControlName(m_slot));
    m_box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_box->setMinimumContentsLength(BoxCharacters);
    m_box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_box->setMaxVisibleItems(20);
    connect(m_box, &QComboBox::activated, this, [this](int index) { m_quick.chooseItem(m_slot, index); });
}

void SlotRowForm::makeEdit(QWidget* page) {
    m_edit = new NumberEdit(page);
    m_edit->setObjectName(slotControlName(m_slot));
    m_edit->setAlignment(Qt::AlignRight);
    m_edit->setMaximumWidth(m_edit->fontMetrics().averageCharWidth() * (EditCharacters + 6));
    connect(m_edit, &QLineEdit::textEdited, this,
            [this](const QString& text) { m_quick.typeText(m_slot, text); });
    connect(m_edit, &NumberEdit::entered, this, [this] {
        m_quick.ProcessLabeledEditKeyPress(m_slot);
        m_edit->selectAll();
    });
    connect(m_edit, &NumberEdit::left, this, [this] { Q_EMIT left(m_slot); });
}

void SlotRowForm::showList() {
    const FamilySetup* family = m_quick.family();
    const bool used = family && m_quick.used(m_slot);
    for (QWidget* widget : {static_cast<QWidget*>(m_label), control(), static_cast<QWidget*>(m_unit),
                            static_cast<QWidget*>(m_mark)})
        widget->setVisible(used);
    m_label->setText(used ? slotLabel(*family, m_slot) : QString());
    control()->setAccessibleName(m_label->text());
    m_unit->setText(family ? slotUnit(*family, m_slot) : QString());
    if (m_box) {
        m_box->clear();
        if (family)
            for (const std::string_view item : slotChoices(*family, m_slot))
                m_box->addItem(QString::fromLatin1(item.data(), static_cast<qsizetype>(item.size())));
    }
    showValue();
}

void SlotRowForm::showValue() {
    const QSlot& q = m_quick.Slot[static_cast<size_t>(m_slot)];
    if (m_box) m_box->setCurrentIndex(q.ItemIndex);
    if (m_edit && m_edit->text() != q.text) m_edit->setText(q.text);
    showMarks();
}

QString SlotRowForm::hint() const {
    QStringList lines;
    if (m_box) lines += m_box->currentText();
    const QString limits = m_quick.limitsText(m_slot);
    if (!limits.isEmpty()) lines += tr("Limits: %1").arg(limits);
    const QSlot& q = m_quick.Slot[static_cast<size_t>(m_slot)];
    if (q.held) lines += tr("In the drive: %1").arg(m_quick.shownValue(m_slot, *q.held));
    if (m_quick.used(m_slot) && !m_quick.doubtOf(m_slot).isEmpty()) lines += m_quick.doubtOf(m_slot);
    lines.removeAll(QString());
    return lines.join(QLatin1Char('\n'));
}

// A sign and words, not a colour alone.
void SlotRowForm::showMarks() {
    const bool used = m_quick.used(m_slot);
    const bool doubt = used && !m_quick.doubtOf(m_slot).isEmpty();
    const bool changed = used && m_quick.changed(m_slot);
    m_mark->setText(doubt ? DoubtMark : changed ? ChangedMark : QString());
    m_mark->setToolTip(doubt     ? m_quick.doubtOf(m_slot)
                       : changed ? tr("Changed, not written yet")
                                 : QString());
    control()->setToolTip(hint());
    control()->setAccessibleDescription(m_mark->toolTip());
}

}  // namespace kelvane

#include "diagnostics/keypad/keypad_form.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QStackedWidget>

#include "catalogue/value_edit.h"
#include "ui/led_text.h"
#include "ui/panel_key.h"
#include "ui/scanner.h"
#include "ui/seven_segment_label.h"
#include "ui/transparent_button.h"

namespace kelvane {

namespace {

// Keys that put no character in.
bool isEditingKey(const QKeyEvent& event) {
    return event.text().isEmpty() || event.modifiers().testFlag(Qt::ControlModifier) ||
           event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab || event.key() == Qt::Key_Delete;
}

}  // namespace

void TKeypadForm::listen() {
    connect(&m_keypad, &Keypad::changed, this, &TKeypadForm::showScreen);
    connect(&m_keypad, &Keypad::selectInputWanted, InputEdit, &QLineEdit::selectAll);
    connect(InputEdit, &QLineEdit::textEdited, this,
            [this](const QString& text) { m_shown.InputEdit = m_keypad.screen.InputEdit = text; });
    // By a person's hand only, not by a position that the drive gave.
    connect(FreqScrollBar, &QScrollBar::actionTriggered, this,
            [this] { m_keypad.FreqScrollBarScroll(FreqScrollBar->sliderPosition()); });
    connect(SelPrComboBox, &QComboBox::activated, &m_keypad, &Keypad::SelPrComboBoxChange);
    connect(EditTransparentButton, &QAbstractButton::clicked, &m_keypad, &Keypad::DataVrLabelDblClick);
    connect(OnLineTransparentButton, &QAbstractButton::clicked, this, &TKeypadForm::onLineClicked);
}

bool TKeypadForm::eventFilter(QObject* watched, QEvent* event) {
    if (watched == DataVrLabel && event->type() == QEvent::MouseButtonDblClick) {
        m_keypad.DataVrLabelDblClick();
        return true;
    }
    // A wheel that only passes over the slider changes no speed.
    if (watched == FreqScrollBar && event->type() == QEvent::Wheel && !FreqScrollBar->hasFocus()) return true;
    if (watched != InputEdit || event->type() != QEvent::KeyPress) return false;
    const auto& key = static_cast<const QKeyEvent&>(*event);
    if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) {
        if (!key.isAutoRepeat()) m_keypad.InputEditEnter();
        return true;
    }
    return !isEditingKey(key) && inputKey(key.text().front()) == InputKey::Drop;
}

void TKeypadForm::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    m_tag = 1;
    m_keypad.FormShow();
    // The key that may be pressed by mistake.
    STOPTransparentButton->setFocus();
}

void TKeypadForm::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    if (!event->spontaneous()) m_tag = 0;
}

// ---- The engine's screen ----

void TKeypadForm::showScreen() {
    const KeypadScreen& now = m_keypad.screen;
    showMainPage(now);
    showParaPage(now);
    ErrNameVrLabel->setText(now.ErrNameVrLabel);
    ErrDescriptLabel->setText(now.ErrDescriptLabel);
    OnLineTransparentButton->setVisible(now.OnLineTransparentButtonVisible);
    InitialVrLabel->setVisible(now.InitialVrLabelVisible);
    InitialVrIndicator->setVisible(now.InitialVrLabelVisible);
    InitialVrIndicator->setPosition(now.InitialVrIndicatorPosition);
    showLeds(now);
    for (PanelKey* key : m_keys) key->setVisible(now.keysVisible);
    PageControl1->setCurrentIndex(static_cast<int>(now.sheet));
    m_shown = now;
}

void TKeypadForm::showMainPage(const KeypadScreen& now) {
    HeadInfoLabel->setText(now.HeadInfoLabel);
    displayVrLabel->setText(now.displayVrLabel);
    LeadChVrLabel->setText(now.LeadChVrLabel);
    for (QWidget* widget : std::initializer_list<QWidget*>{HeadInfoLabel, displayVrLabel, LeadChVrLabel})
        widget->setVisible(now.displayVisible);
    const QString values[] = {now.FVrLabel, now.HVrLabel, now.AVrLabel};
    for (size_t i = 0; i < m_summary.size(); ++i) {
        m_summary[i].value->setText(values[i]);
        m_summary[i].value->setVisible(now.summaryVisible);
        m_summary[i].letter->setVisible(now.summaryVisible);
    }
    FreqScrollBar->setMaximum(now.FreqScrollBarMax);
    FreqScrollBar->setValue(now.FreqScrollBarPosition);
    FreqScrollBar->setVisible(now.FreqScrollBarVisible);
    underLineVrLabel->setVisible(now.underLineVrLabelVisible);
    if (now.InputEdit != m_shown.InputEdit) InputEdit->setText(now.InputEdit);
    InputEdit->setVisible(now.InputEditVisible);
    m_hertz->setVisible(now.InputEditVisible);
}

void TKeypadForm::showParaPage(const KeypadScreen& now) {
    if (now.SelPrComboBox != m_shown.SelPrComboBox) {
        SelPrComboBox->clear();
        SelPrComboBox->addItems(now.SelPrComboBox);
    }
    SelPrComboBox->setCurrentIndex(now.SelPrComboBoxItemIndex);
    PrNumVrLabel->setText(now.PrNumVrLabel);
    PrNameLabel->setText(now.PrNameLabel);
    DataVrLabel->setText(now.DataVrLabel);
    DefLabel->setText(now.DefLabel);
    MinLabel->setText(now.MinLabel);
    MaxLabel->setText(now.MaxLabel);
    UnitVrLabel->setText(now.UnitVrLabel);
    LockImage->setVisible(now.LockImageVisible);
}

void TKeypadForm::showLeds(const KeypadScreen& now) {
    for (size_t i = 0; i < m_leds.size(); ++i) {
        m_leds[i]->setFlashing(now.flashing(static_cast<KeypadLed>(i)));
        m_leds[i]->setLit(now.red[i]);
    }
}

}  // namespace kelvane

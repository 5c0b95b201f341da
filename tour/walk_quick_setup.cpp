// Quick Setup.
#include <QComboBox>
#include <QLineEdit>
#include <QTabWidget>

#include "link/number_text.h"
#include "quicksetup/qs_source_form.h"
#include "quicksetup/quick_setup_form.h"
#include "tour/walk.h"

namespace kelvane::tour {

namespace {

constexpr int SweepMs = 60000;

}  // namespace

void Walk::openQuickSetup() {
    m_script.step(QStringLiteral("Quick Setup: values from the drive"));
    auto& source = m_windows.form<TQSsourceForm>();
    m_hand.click(m_main, "QuickSetupTransparentButton");
    m_hand.waitForWindow(source, true);
    m_script.keepPicture(source, QStringLiteral("quick-setup-source"));
    m_hand.click(source, "OKTransparentButton");
    m_hand.waitForWindow(m_windows.form<TQuickSetupForm>(), true, SweepMs);
    check(!m_windows.initialForm.isVisible(), QStringLiteral("the wait notice is still there"));
}

void Walk::lookAtSteps() {
    m_script.step(QStringLiteral("Quick Setup: the four steps"));
    auto& wizard = m_windows.form<TQuickSetupForm>();
    for (int step = 1; step <= 4; ++step) {
        m_script.keepPicture(wizard, QStringLiteral("quick-setup-step-%1").arg(step));
        if (step < 4) m_hand.click(wizard, "NextStepBitBtn");
    }
    m_hand.find<QTabWidget>(wizard, "PageControl2").setCurrentIndex(1);
    m_hand.pause(100);
    m_script.keepPicture(wizard, QStringLiteral("quick-setup-inputs"));
}

// The acceleration time, first too large.
void Walk::changeRampTime() {
    m_script.step(QStringLiteral("Quick Setup: change the acceleration time, write it"));
    constexpr int RampSlot = 20;
    auto& wizard = m_windows.form<TQuickSetupForm>();
    m_hand.click(wizard, "BackStepBitBtn");
    m_hand.click(wizard, "BackStepBitBtn");
    auto& edit = m_hand.find<QLineEdit>(wizard, "S2para13LabeledEdit");
    m_answers.expectBox(QStringLiteral("Value is too large"), QMessageBox::Ok);
    m_hand.click(edit);
    edit.selectAll();
    m_hand.keys(edit, QStringLiteral("99999"));
    m_hand.key(edit, Qt::Key_Tab);
    m_hand.waitForAnswers();
    const QSlot& slot = m_stage.tool->quickSetup.Slot[RampSlot];
    const int wanted = slot.SlotValue + 10;
    m_hand.click(edit);
    edit.selectAll();
    m_hand.keys(edit, InsertDecimalPoint(QString::number(wanted), slot.SlotDecimals));
    m_hand.key(edit, Qt::Key_Return);
    m_answers.expectBox(QStringLiteral("Do you want write these settings to drive ?"), QMessageBox::Yes,
                        QStringLiteral("quick-setup-question"));
    m_hand.click(wizard, "OKBitBtn");
    m_hand.waitForAnswers();
    m_hand.waitForWindow(wizard, false, SweepMs);
    check(m_drive.word(slot.SlotAddress.toUShort(nullptr, 16)) == wanted,
          QStringLiteral("the drive does not hold the new acceleration time"));
}

}  // namespace kelvane::tour

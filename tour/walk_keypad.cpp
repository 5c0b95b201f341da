// Keypad: every page, run and stop, a fault, a parameter.
#include "tour/walk.h"

#include <QComboBox>
#include <QLineEdit>
#include <QStackedWidget>

#include "diagnostics/keypad/keypad_form.h"
#include "link/number_text.h"

namespace kelvane::tour {

namespace {

constexpr int RampMs = 60000;
constexpr int ErrorPage = 2;

}  // namespace

void Walk::operateKeypad() {
    m_script.step(QStringLiteral("Keypad: a frequency, run, the pages"));
    auto& keypad = m_windows.form<TKeypadForm>();
    const auto reads = [&](const char* label, const QString& text) {
        m_hand.waitFor(
            QStringLiteral("%1 to read %2").arg(QLatin1String(label), text),
            [&, text] { return m_hand.text(keypad, label) == text; }, RampMs);
    };
    m_hand.click(m_main, "KeypadTransparentButton");
    m_hand.waitForWindow(keypad, true);
    auto& edit = m_hand.find<QLineEdit>(keypad, "InputEdit");
    m_hand.waitFor(QStringLiteral("the frequency's edit"), [&] { return edit.isVisible(); });
    m_hand.click(keypad, "InputEdit");
    m_hand.keys(edit, QStringLiteral("5"));
    m_hand.key(edit, Qt::Key_Return);
    reads("displayVrLabel", QStringLiteral("5") + DecimalSep + QStringLiteral("00"));
    m_hand.click(keypad, "RUNTransparentButton");
    m_hand.waitFor(QStringLiteral("the motor to turn"), [this] { return m_drive.motor().outputHz() > 0; });
    m_script.keepPicture(keypad, QStringLiteral("keypad-frequency"));
    for (const char* picture : {"keypad-output", "keypad-user", "keypad-current", "keypad-summary"}) {
        m_hand.click(keypad, "ModeTransparentButton");
        m_hand.pause(300);
        m_script.keepPicture(keypad, QLatin1String(picture));
    }
}

void Walk::stopFromKeypad() {
    m_script.step(QStringLiteral("Keypad: stop by F12, a fault and its reset"));
    auto& keypad = m_windows.form<TKeypadForm>();
    auto& pages = m_hand.find<QStackedWidget>(keypad, "PageControl1");
    m_hand.key(m_main, Qt::Key_F12);
    m_hand.waitFor(
        QStringLiteral("the motor to stand"), [this] { return !m_drive.motor().running(); }, RampMs);
    m_hand.choose(m_main, {QStringLiteral("OptionsMenu"), QStringLiteral("PracticeDriveMenu")},
                  "RaiseFaultItem", QStringLiteral("raise-a-fault"));
    m_hand.waitFor(QStringLiteral("the fault on the keypad"),
                   [&] { return pages.currentIndex() == ErrorPage; });
    check(!m_hand.text(keypad, "ErrNameVrLabel").isEmpty(), QStringLiteral("the fault has no name"));
    m_script.keepPicture(keypad, QStringLiteral("keypad-fault"));
    m_hand.click(keypad, "STOPTransparentButton");
    m_hand.waitFor(QStringLiteral("the fault to go"), [&] { return pages.currentIndex() != ErrorPage; });
}

void Walk::walkParametersOnKeypad() {
    m_script.step(QStringLiteral("Keypad: a parameter"));
    auto& keypad = m_windows.form<TKeypadForm>();
    m_hand.click(keypad, "PROGTransparentButton");
    auto& box = m_hand.find<QComboBox>(keypad, "SelPrComboBox");
    m_hand.chooseText(keypad, "SelPrComboBox", box.itemText(5));
    m_hand.waitFor(QStringLiteral("the parameter's record"),
                   [&] { return m_hand.text(keypad, "PrNumVrLabel") == box.itemText(5); });
    m_script.keepPicture(keypad, QStringLiteral("keypad-parameter"));
    keypad.close();
    m_hand.waitForWindow(keypad, false);
}

}  // namespace kelvane::tour

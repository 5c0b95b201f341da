// Advance console.
#include <QPlainTextEdit>

#include "console/advance_form.h"
#include "tour/walk.h"

namespace kelvane::tour {

void Walk::useConsole() {
    m_script.step(QStringLiteral("Advance: one command, a register block polled, the listener"));
    auto& form = m_windows.form<TAdvanceForm>();
    const AdvanceConsole& console = m_stage.tool->console;
    m_hand.click(m_main, "AdvanceTransparentButton");
    m_hand.waitForWindow(form, true);
    m_hand.click(form, "SendFixTransparentButton");
    const auto& log = m_hand.find<QPlainTextEdit>(form, "MsgRichEdit");
    m_hand.waitFor(QStringLiteral("the reply"),
                   [&log] { return log.toPlainText().contains(QLatin1String("Receive > ")); });
    check(!console.log.lines().front().failed(), QStringLiteral("the drive does not answer the console"));
    m_hand.click(form, "RUNTransparentButton");
    m_hand.waitFor(QStringLiteral("a few polls"), [&console] { return console.record().totalRecords > 4; });
    m_script.keepPicture(form, QStringLiteral("console"));
    m_hand.click(form, "STOPTransparentButton");
    check(console.record().errorRecords == 0, QStringLiteral("a poll failed"));
    m_hand.choose(form, {QStringLiteral("SelectMenu")}, "Monitor");
    m_hand.click(form, "RUNmonitorTransparentButton");
    m_script.keepPicture(form, QStringLiteral("console-listener"));
    m_hand.click(form, "STOPmonitorTransparentButton");
    m_hand.choose(form, {QStringLiteral("FileMenu")}, "Exit");
    m_hand.waitForWindow(form, false);
}

}  // namespace kelvane::tour

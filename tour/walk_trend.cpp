// Trend: record a motor that speeds up, look at the run as a whole, save it.
#include <QFileInfo>

#include "diagnostics/trend/scope_form.h"
#include "tour/walk.h"
#include "ui/trend_plot.h"

namespace kelvane::tour {

namespace {

constexpr int RecordMs = 30000;

}  // namespace

void Walk::recordTrend() {
    m_script.step(QStringLiteral("Trend: record a motor that speeds up"));
    auto& scope = m_windows.form<TScopeForm>();
    m_hand.click(m_main, "TrendTransparentButton");
    m_hand.waitForWindow(scope, true);
    m_hand.click(scope, "StartVrPowerButton");
    m_drive.motor().setCommandHz(50);
    m_drive.motor().run();
    m_hand.waitFor(
        QStringLiteral("sixty records"),
        [&] { return m_hand.text(scope, "TotalRecordsLabel").toInt() >= 60; }, RecordMs);
    m_drive.motor().stop();
    m_hand.waitFor(
        QStringLiteral("ninety records"),
        [&] { return m_hand.text(scope, "TotalRecordsLabel").toInt() >= 90; }, RecordMs);
    m_hand.key(*scope.AbTrend1, Qt::Key_F);
    m_script.keepPicture(scope, QStringLiteral("trend"));
}

void Walk::saveTrend() {
    m_script.step(QStringLiteral("Trend: stop, save, close"));
    auto& scope = m_windows.form<TScopeForm>();
    m_hand.click(scope, "StartVrPowerButton");
    const QString path = file(QStringLiteral("run.trd"));
    m_answers.expectFile(path);
    m_hand.click(scope, "SaveScopeDataTransparentButton");
    m_hand.waitForAnswers();
    const qint64 records = m_hand.text(scope, "TotalRecordsLabel").toLongLong();
    check(QFileInfo(path).size() == 24 * records, QStringLiteral("run.trd does not hold every record"));
    m_hand.click(scope, "ExitTransparentButton");
    m_hand.waitForWindow(scope, false);
    m_hand.waitFor(
        QStringLiteral("the motor to stand"), [&] { return !m_drive.motor().running(); }, RecordMs);
}

}  // namespace kelvane::tour

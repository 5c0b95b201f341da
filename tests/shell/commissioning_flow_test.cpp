// The PID and the auto tuning window inside the whole tool: from the menu behind the wait notice to the poll
// that goes on when they have closed.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QStackedWidget>
#include <QTest>

#include "commissioning/auto_tuning_form.h"
#include "commissioning/motor_sel_form.h"
#include "commissioning/pid_form.h"
#include "shell/shell_bench.h"
#include "ui/icons.h"
#include "ui/mark_panel.h"

namespace kelvane {
namespace {

struct CommissioningFlow : ShellBench {
    TPIDForm& pidForm = windows->form<TPIDForm>();
    TAutoTuningForm& tuningForm = windows->form<TAutoTuningForm>();
    RequestScheduler& link = tool->link;

    bool checked(const char* name, QWidget& in) { return find<QAbstractButton>(name, &in)->isChecked(); }
    bool open(const char* item, QWidget& form) {
        trigger(item);
        EXPECT_TRUE(windows->initialForm.isVisible());
        EXPECT_FALSE(form.isVisible());
        return clock.advanceUntil([&] { return form.isVisible(); }, 60000);
    }
};

TEST(CommissioningFlow, OpensPidBehindTheNoticeAndGivesTheLineBack) {
    CommissioningFlow b;
    EXPECT_FALSE(b.find<QAction>("PIDControl")->isEnabled());
    b.goOnLine(Family::Osier);
    b.clock.advance(1000);
    EXPECT_FALSE(b.find<QAction>("MultiStep")->isVisible() || b.find<QAction>("MultiStep")->isEnabled());
    ASSERT_TRUE(b.open("PIDControl", b.pidForm));
    EXPECT_FALSE(b.windows->initialForm.isVisible());
    EXPECT_EQ(b.link.ActiveFunction, OwnerPid);
    for (const PidFamily& family : pidFamilies())
        EXPECT_EQ(b.find<PictureBox>(family.diagram, &b.pidForm)->isVisibleTo(&b.pidForm),
                  family.family == Family::Osier);
    b.clock.advance(500);
    EXPECT_TRUE(b.checked("STOPAbLED", b.pidForm));
    b.port().clearTranscript();
    for (int page = 1; page <= 4; ++page) {
        b.press(qPrintable(QStringLiteral("Case%1AbLED").arg(page)), b.pidForm);
        EXPECT_EQ(b.find<QStackedWidget>("PageControl1", &b.pidForm)->currentWidget()->objectName(),
                  QStringLiteral("TabSheet%1").arg(page));
    }
    b.press("RUNTransparentButton", b.pidForm);
    b.clock.advance(1000);
    QTest::keyClick(b.pidForm.windowHandle(), Qt::Key_F12);
    b.clock.advance(1000);
    EXPECT_EQ(b.port().transcript().filter("FF06"), QStringList({"FF0620000002", "FF0620000001"}));
    b.press("ExitTransparentButton", b.pidForm);
    EXPECT_FALSE(b.pidForm.isVisible());
    EXPECT_EQ(b.link.ActiveFunction, OwnerMain);
    b.port().clearTranscript();
    b.clock.advance(1000);
    EXPECT_EQ(b.port().transcript().value(0), "FF032100000E");
    EXPECT_FALSE(b.port().transcript().contains("FF0321190001"));
    ASSERT_TRUE(b.open("PIDControl", b.pidForm));
}

// The notice is a way out at every moment: it shows the window, and the window closes.
TEST(CommissioningFlow, LeavesTheNoticeOfADeadRead) {
    CommissioningFlow b;
    b.goOnLine(Family::Larch);
    b.trigger("AutoTuning");
    b.clock.advanceUntil([&] { return b.tool->autoTuning.TuneRow == 3; }, 60000);
    b.practice.lineOf(Family::Larch).faults().failNext(drive::LineFault::Exception);
    b.clock.advance(30000);
    ASSERT_TRUE(b.windows->initialForm.isVisible());
    EXPECT_FALSE(b.tuningForm.isVisible());
    QTest::keyClick(&b.windows->initialForm, Qt::Key_Escape);
    EXPECT_FALSE(b.windows->initialForm.isVisible());
    ASSERT_TRUE(b.tuningForm.isVisible());
    EXPECT_TRUE(b.find<QLabel>("StatusLabel", &b.tuningForm)->text().startsWith("The drive refused"));
    b.tuningForm.close();
    EXPECT_FALSE(b.tuningForm.isVisible());
    b.clock.advance(1000);
    EXPECT_TRUE(b.link.TxTimer.Enabled() || b.link.RxTimer.Enabled()) << "the poll goes on";
}

TEST(CommissioningFlow, ChangesTheMotorTunesAndAsksBeforeItIsLeft) {
    CommissioningFlow b;
    b.goOnLine(Family::Tilia);
    ASSERT_TRUE(b.open("AutoTuning", b.tuningForm));
    auto& motorForm = b.windows->form<TMotorSelForm>();
    b.press("MotorSelTransparentButton", b.tuningForm);
    ASSERT_TRUE(motorForm.isVisible());
    EXPECT_FALSE(b.find<QWidget>("Motor2Image", &b.tuningForm)->isVisible());
    EXPECT_TRUE(b.find<MarkPanel>("Motor1Panel", &motorForm)->marked());
    b.press("Motor2TransparentButton", motorForm);
    EXPECT_FALSE(b.find<MarkPanel>("Motor1Panel", &motorForm)->marked());
    b.press("OKTransparentButton", motorForm);
    b.clock.advance(5000);
    EXPECT_TRUE(b.find<QWidget>("Motor2Image", &b.tuningForm)->isVisible());
    EXPECT_FALSE(b.find<QWidget>("Motor1Image", &b.tuningForm)->isVisible());

    auto* entries = b.find<QComboBox>("TuneParaComboBox", &b.tuningForm);
    auto* tune = b.find<QAbstractButton>("TuneTransparentButton", &b.tuningForm);
    EXPECT_EQ(entries->count(), 4);
    EXPECT_FALSE(tune->isEnabled());
    entries->setCurrentIndex(2);
    Q_EMIT entries->activated(2);
    EXPECT_TRUE(b.find<QLabel>("TuneDesLabel", &b.tuningForm)->text().startsWith("The motor does not turn."));
    tune->click();
    b.clock.advance(1500);
    EXPECT_FALSE(b.find<QWidget>("ExitTransparentButton", &b.tuningForm)->isEnabled());
    b.port().clearTranscript();
    QTest::keyClick(b.tuningForm.windowHandle(), Qt::Key_F12);
    b.clock.advance(10000);
    EXPECT_EQ(b.port().transcript().filter("FF06"), QStringList("FF0620000001"));
    EXPECT_TRUE(b.find<QLabel>("StatusLabel", &b.tuningForm)->text().startsWith("STOP was sent."));
    EXPECT_TRUE(b.find<QWidget>("ExitTransparentButton", &b.tuningForm)->isEnabled());
    Q_EMIT entries->activated(2);
    tune->click();
    b.clock.advance(1500);
    const QString question = "The drive goes on tuning when this window is closed.\nClose the window?";
    b.person.expectBox(question, "Caution", BoxAnswer::No);
    b.tuningForm.close();
    EXPECT_TRUE(b.tuningForm.isVisible());
    b.person.expectBox(question, "Caution", BoxAnswer::Yes);
    QTest::keyClick(&b.tuningForm, Qt::Key_Escape);
    EXPECT_FALSE(b.tuningForm.isVisible());
    EXPECT_EQ(b.link.ActiveFunction, OwnerMain);
    ASSERT_TRUE(b.open("AutoTuning", b.tuningForm));
    EXPECT_TRUE(b.find<QWidget>("ExitTransparentButton", &b.tuningForm)->isEnabled());
    EXPECT_EQ(entries->currentIndex(), 0);
}

}  // namespace
}  // namespace kelvane

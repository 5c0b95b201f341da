// Monitor and fault history inside the whole tool: they add no frame, keep their choices in the project file,
// and open what belongs to them.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QStackedWidget>
#include <QTest>

#include "diagnostics/faults/err_history_form.h"
#include "diagnostics/monitor/meter_type_form.h"
#include "diagnostics/monitor/monitor_form.h"
#include "diagnostics/trend/scope_form.h"
#include "shell/shell_bench.h"
#include "ui/mark_panel.h"
#include "ui/meters.h"

namespace kelvane {
namespace {

struct MonitorFlow : ShellBench {
    TMonitorForm& form = windows->form<TMonitorForm>();
    TMeterTypeForm& typeForm = windows->form<TMeterTypeForm>();
    RequestScheduler& link = tool->link;

    explicit MonitorFlow(const QByteArray& project = {}) : ShellBench(project) {}
    void choose(const char* name, int index) {
        auto* box = find<QComboBox>(name, &form);
        box->setCurrentIndex(index);
        Q_EMIT box->activated(index);
    }
    QString page(const char* control) {
        return find<QStackedWidget>(control, &form)->currentWidget()->objectName();
    }
};

TEST(MonitorFlow, ShowsTheDriveWithoutAFrameOfItsOwn) {
    MonitorFlow b;
    b.goOnLine(Family::Tilia);
    b.trigger("Monitor");
    ASSERT_TRUE(b.form.isVisible());
    EXPECT_EQ(b.link.ActiveFunction, OwnerMonitor);
    EXPECT_TRUE(b.find<QWidget>("KeypadTransparentButton", &b.form)->isEnabled());
    b.choose("ComboBox1st", 3);
    b.port().clearTranscript();
    b.press("StartVrPowerButton", b.form);
    b.clock.advance(1100);
    // The poll, and what the keypad asks on its own: its first parameter and the maximum frequency.
    const QStringList others{"FF0321000010", "FF030000000F", "FF03211B0001"};
    for (const QString& frame : b.port().transcript())
        EXPECT_TRUE(others.contains(frame)) << frame.toStdString();
    const auto* dial = b.find<DialMeter>("VrAngularMeter1st", &b.form);
    EXPECT_GT(dial->Position(), 100) << "volts of the bus";
    EXPECT_TRUE(b.find<QLabel>("Meter1stValueLabel", &b.form)->text().endsWith(" Vdc"));
    EXPECT_GE(b.tool->monitor.AbTrend1.TotalRecords(), 9);
    b.press("ExitTransparentButton", b.form);
    EXPECT_EQ(b.link.ActiveFunction, OwnerMain);
    EXPECT_EQ(b.tool->monitor.AbTrend1.TotalRecords(), 0);
    EXPECT_FALSE(b.find<QAbstractButton>("StartVrPowerButton", &b.form)->isChecked());
    b.clock.advance(1000);
    EXPECT_EQ(b.find<QLabel>("Meter1stValueLabel", &b.form)->text(), "0");
}

// Each meter asks for its own kind; the dialog marks what is chosen, and every way out of it counts.
TEST(MonitorFlow, ExchangesAMeter) {
    MonitorFlow b;
    b.goOnLine(Family::Tilia);
    b.trigger("Monitor");
    const QStringList meters{"VrAngularMeter2nd", "AbThermometer2nd", "AbHMeter2nd"};
    const QStringList panels{"M2Panel", "M3Panel", "M1Panel"};
    const QStringList pages{"TabSheet5", "TabSheet6", "TabSheet4"};
    for (int i = 0; i < 3; ++i) {
        QTest::mouseDClick(b.find<QWidget>(qPrintable(meters[i]), &b.form), Qt::LeftButton);
        ASSERT_TRUE(b.typeForm.isVisible());
        auto* panel = b.find<MarkPanel>(qPrintable(panels[i]), &b.typeForm);
        QTest::mouseClick(panel, Qt::LeftButton, {}, QPoint(3, 3));
        EXPECT_TRUE(panel->marked());
        b.find<QLineEdit>("LabeledEdit1", &b.typeForm)->setText("80");
        i == 1 ? b.press("OKTransparentButton", b.typeForm) : b.typeForm.reject();
        EXPECT_EQ(b.page("PageControl2"), pages[i]);
    }
    EXPECT_EQ(b.page("PageControl1"), "TabSheet1");
    EXPECT_EQ(b.find<ScaleMeter>("AbThermometer2nd", &b.form)->DigitalTo(), 8000);
    b.press("MeterTransparentButton", b.form);
    auto* question = b.form.findChild<QInputDialog*>();
    ASSERT_NE(question, nullptr);
    question->setTextValue("75");
    question->accept();
    EXPECT_EQ(b.find<DialMeter>("VrMeter", &b.form)->MaxValue(), 75);
}

// Indexes come from the project file in the order first, second, large dial, trend; one that the drive's list
// does not reach selects nothing and is kept for the next drive.
TEST(MonitorFlow, KeepsItsItemsInTheProject) {
    DefaultProject project;
    project.ComSetup.ComPortComboBox = "20";
    project.Monitor = {1, 12, 2, 3};
    MonitorFlow b(defaultProjectBytes(project));
    b.goOnLine(Family::Aspen);
    b.trigger("Monitor");
    EXPECT_EQ(b.find<QComboBox>("ComboBox1st", &b.form)->currentIndex(), 1);
    EXPECT_EQ(b.find<QComboBox>("ComboBox2nd", &b.form)->currentIndex(), -1);
    b.choose("Ch1ComboBox", 5);
    b.tool->SaveProject();
    const QByteArray saved = readWhole(b.folder.file("default.prj")).bytes;
    EXPECT_TRUE(saved.contains("ComboBox1=1\r\nComboBox2=12\r\nComboBox3=2\r\nComboBox4=5\r\n"))
        << saved.toStdString();
}

TEST(MonitorFlow, ShowsAFaultAndItsHistory) {
    MonitorFlow b;
    b.goOnLine(Family::Tilia);
    auto& scope = b.windows->form<TScopeForm>();
    auto& history = b.windows->form<TErrHistoryForm>();
    DriveStatusRecord status = b.link.DriveStatus;
    status.FaultCode = 5;
    status.FaultTextValid = 1;
    status.FaultName = "oL1 ";
    status.ExceptionText = "Motor overload  ";
    b.tool->trend.ProcessScopeData(status);
    EXPECT_EQ(b.find<QLabel>("ErrDescriptLabel", &scope)->text(), "oL1  : Motor overload  ");
    b.press("ErrHistoryTransparentButton", scope);
    ASSERT_TRUE(history.isVisible());
    EXPECT_EQ(b.tool->faults.entries(), 1);
    b.press("ExitTransparentButton", history);
    EXPECT_EQ(b.tool->faults.entries(), 1);
    b.press("ClearTransparentButton", history);
    EXPECT_EQ(b.tool->faults.entries(), 0);
    EXPECT_FALSE(b.find<QWidget>("CopyTransparentButton", &history)->isEnabled());
}

}  // namespace
}  // namespace kelvane

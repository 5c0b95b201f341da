// The Trend window over a practice drive: what the hand does and what the drive sees of it.
#include "diagnostics/trend/scope_form.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QTabWidget>
#include <QTest>

#include "diagnostics/trend/tool_form.h"
#include "diagnostics/trend/trend_print_form.h"
#include "link/number_text.h"
#include "shell/shell_bench.h"
#include "ui/lamp.h"
#include "ui/power_button.h"
#include "ui/trend_plot.h"

namespace kelvane {
namespace {

struct ScopeForm : testing::Test {
    ShellBench b;
    TrendSession& session = b.tool->trend;
    TScopeForm& form = b.windows->form<TScopeForm>();

    template <class T>
    T* find(const QString& name) {
        return b.find<T>(qPrintable(name), &form);
    }
    QString edit(int channel) { return find<QLineEdit>(QString("Ch%1LabeledEdit").arg(channel))->text(); }
    QString label(const char* name) { return find<QLabel>(name)->text(); }
    void click(const char* name) { find<QAbstractButton>(name)->click(); }
    void hover(TrendPlot* plot, double x, double y) {
        QMouseEvent event(QEvent::MouseMove, {x, y}, plot->mapToGlobal(QPointF(x, y)), Qt::NoButton, {}, {});
        QCoreApplication::sendEvent(plot, &event);
    }
    void open() { b.windows->openWindow(OwnerTrend); }
    void openRunning() {
        b.goOnLine();
        open();
        for (int c = 1; c <= 4; ++c) click(QString("Ch%1VrPowerButton").arg(c).toLatin1().constData());
        click("StartVrPowerButton");
    }
    drive::MotorModel& motor() { return b.practice.driveOf(Family::Larch).motor(); }
};

TEST_F(ScopeForm, OpensModalTakesTheOwnershipAndGivesItBack) {
    open();
    EXPECT_TRUE(form.isModal());
    EXPECT_EQ(b.tool->link.ActiveFunction, OwnerTrend);
    EXPECT_FALSE(find<QWidget>("KeypadTransparentButton")->isEnabled());
    auto* pages = find<QTabWidget>("PageControl1");
    EXPECT_FALSE(pages->isTabVisible(1));
    form.close();
    EXPECT_EQ(b.tool->link.ActiveFunction, OwnerMain);
    b.goOnLine();
    open();
    EXPECT_TRUE(find<QWidget>("KeypadTransparentButton")->isEnabled());
    EXPECT_TRUE(pages->isTabVisible(1));
    EXPECT_EQ(find<QComboBox>("Ch1ComboBox")->count(), 14);
    EXPECT_EQ(label("DriveVrLabel"), "Larch");
    b.tool->link.Initial();
    EXPECT_FALSE(pages->isTabVisible(1));
    EXPECT_FALSE(find<QWidget>("KeypadTransparentButton")->isEnabled());
}

TEST_F(ScopeForm, ARunCountsAndClearsAndAClosedWindowForgetsIt) {
    openRunning();
    b.clock.advance(5000);
    EXPECT_NEAR(label("TotalRecordsLabel").toInt(), 50, 1);
    EXPECT_FALSE(find<QScrollBar>("TrendScrollBar")->isEnabled());
    EXPECT_EQ(edit(1) + edit(5), " -- ");
    click("ClearTransparentButton");
    EXPECT_EQ(label("TotalRecordsLabel"), "0");
    EXPECT_EQ(session.AbTrend2.TotalRecords(), 0);
    form.close();
    open();
    EXPECT_FALSE(find<QAbstractButton>("StartVrPowerButton")->isChecked());
    EXPECT_EQ(edit(5), " -- ");
}

TEST_F(ScopeForm, TheRunRestsWhileTheDriveIsSilentAndGoesOnByItself) {
    openRunning();
    b.clock.advance(2000);
    b.practice.lineOf(Family::Larch).setUnplugged(true);
    b.clock.advance(1500);
    EXPECT_FALSE(session.AbTrend1.recording());
    EXPECT_TRUE(find<QAbstractButton>("StartVrPowerButton")->isChecked());
    const qint64 before = session.AbTrend1.TotalRecords();
    b.practice.lineOf(Family::Larch).setUnplugged(false);
    b.clock.advance(12000);
    EXPECT_TRUE(session.AbTrend1.recording());
    int separators = 0;
    for (const TrendRecord& record : session.AbTrend1.data.records.all()) separators += record.isSeparator();
    EXPECT_EQ(separators, 5);
    EXPECT_GT(session.AbTrend1.TotalRecords(), before + 15);
    EXPECT_EQ(session.AbTrend1.TotalRecords(), session.AbTrend2.TotalRecords());
}

TEST_F(ScopeForm, StatusTabFollowsTheDrive) {
    openRunning();
    motor().setCommandHz(50);
    motor().run();
    b.clock.advance(3000);
    EXPECT_TRUE(find<AbLED>("RUNAbLED")->isChecked());
    EXPECT_FALSE(find<AbLED>("STOPAbLED")->isChecked());
    EXPECT_TRUE(find<AbLED>("FWDAbLED")->isChecked());
    EXPECT_EQ(session.InfoAdvStringGrid.cell(0, 2) + session.InfoAdvStringGrid.cell(2, 2),
              "Output Frequency HHz");
    EXPECT_NE(session.InfoAdvStringGrid.cell(1, 2), "0.00");
    motor().stop();
    b.clock.advance(500);
    EXPECT_TRUE(find<AbLED>("STOPAbLED")->isChecked());
    EXPECT_TRUE(find<AbLED>("RUNAbLED")->flashing());
}

TEST_F(ScopeForm, TheScrollBarShowsAScreenfulAroundItsPosition) {
    open();
    TrendRecord* room = session.AbTrend1.data.records.roomFor(5000);
    for (int i = 0; i < 5000; ++i) room[i] = {40000.0 + i, {}};
    session.AbTrend1.data.records.grown(5000);
    Q_EMIT session.AbTrend1.OnRecNoChanged();
    auto* plot = find<TrendPlot>("AbTrend1");
    auto* lower = find<TrendPlot>("AbTrend2");
    auto* bar = find<QScrollBar>("TrendScrollBar");
    EXPECT_EQ(bar->maximum(), 5100);
    const int half = (plot->width() - 110) / 2;
    bar->setValue(2000);
    EXPECT_EQ(plot->FirstDisplayedRec(), 2000 - half);
    EXPECT_EQ(lower->FirstDisplayedRec(), 2000 - half);
    EXPECT_NEAR(double(plot->LastDisplayedRec()), 2000 + half - 1, 1);
    const double low = lower->view().yOf(1);
    const double top = plot->view().yOf(1);
    click("ZoomInTransparentButton");
    EXPECT_LT(plot->view().yOf(1), top);
    EXPECT_EQ(lower->view().yOf(1), low);
    click("ResetTransparentButton");
    EXPECT_EQ(plot->view().yOf(1), top);
}

TEST_F(ScopeForm, UpAndDownMoveWhileHeldAndKeepsTheClickOfDownAlone) {
    open();
    auto* plot = find<TrendPlot>("AbTrend1");
    const double top = plot->view().yOf(1);
    auto* up = find<QWidget>("UpTransparentButton");
    QTest::mousePress(up, Qt::LeftButton);
    b.clock.advance(105);
    QTest::mouseRelease(up, Qt::LeftButton);
    EXPECT_NEAR(plot->view().yOf(1), top - 10, 1e-6);
    b.clock.advance(500);
    auto* down = find<QWidget>("DownTransparentButton");
    QTest::mousePress(down, Qt::LeftButton);
    b.clock.advance(55);
    QTest::mouseRelease(down, Qt::LeftButton);
    EXPECT_NEAR(plot->view().yOf(1), top - 10 + 5 + 10, 1e-6);
}

TEST_F(ScopeForm, CursorsAreLinkedAndTheLabelsShowTheUpperPlotsRecord) {
    openRunning();
    b.clock.advance(3000);
    auto* plot = find<TrendPlot>("AbTrend1");
    auto* lower = find<TrendPlot>("AbTrend2");
    hover(plot, plot->view().xOf(12), 200);
    EXPECT_EQ(label("RecNoLabel"), "12");
    EXPECT_TRUE(lower->valueAtCursor().DataValid);
    EXPECT_EQ(label("RUNStaLabel"), "L");
    EXPECT_EQ(label("FWDStaLabel"), "H");
    EXPECT_EQ(edit(5) + edit(4), "0" + DecimalSep + "00");
    click("CursorTransparentButton");
    EXPECT_EQ(label("RecNoLabel"), "------");
    hover(plot, 5, 60);
    EXPECT_EQ(edit(4), "");
    EXPECT_EQ(label("RUNStaLabel"), "");
}

TEST_F(ScopeForm, OptionDialogSetsScaleAndPensOrNothing) {
    openRunning();
    b.clock.advance(1000);
    auto& tool = b.windows->form<TToolForm>();
    for (const bool ok : {false, true}) {
        if (ok)
            find<QAction>("Option1")->trigger();
        else
            click("OptionTransparentButton");
        ASSERT_TRUE(tool.isVisible());
        EXPECT_TRUE(tool.findChild<AbLED*>("LeftAbLED1")->isChecked());
        tool.findChild<AbLED*>("LeftAbLED2")->click();
        EXPECT_FALSE(tool.findChild<AbLED*>("LeftAbLED1")->isChecked());
        tool.findChild<QLineEdit*>("ChLeftEdit")->setText(QString("80" + DecimalSep + "5"));
        tool.findChild<QComboBox*>("Ch3ComboBox")->setCurrentIndex(4);
        tool.findChild<QAbstractButton*>(ok ? "OKTransparentButton" : "CancelTransparentButton")->click();
        EXPECT_EQ(find<TrendPlot>("AbTrend1")->LeftScaleCh(), ok ? 2 : 1);
        EXPECT_EQ(session.AbTrend1.Channel(2).DigitalTo == 8050, ok);
        EXPECT_EQ(session.AbTrend1.Channel(3).penWidth, ok ? 5 : 1);
    }
}

TEST_F(ScopeForm, PicturesTablesAndPagesAreWritten) {
    openRunning();
    motor().setCommandHz(50);
    motor().run();
    b.clock.advance(2000);
    const QString bmp = b.dir.filePath("a.bmp.bmp"), jpg = b.dir.filePath("a.jpg");
    for (const QString& path : {bmp, jpg}) {
        b.person.expectSave("BMP - BMP|*.bmp|JPG - JPEG|*.jpg", ".bmp|.jpg", path);
        click("SavePICTransparentButton");
        EXPECT_FALSE(QImage(path).isNull()) << path.toStdString();
    }
    for (const char* name : {"p.png", "p.svg", "p.pdf"}) {
        const QString path = b.dir.filePath(name);
        b.person.expectSave("PNG - picture|*.png|SVG - drawing|*.svg|PDF - document|*.pdf", ".png|.svg|.pdf",
                            path);
        find<QAction>("SavePlotItem")->trigger();
        EXPECT_GT(QFileInfo(path).size(), 500) << name;
    }
    find<QAction>("CopyPlotItem")->trigger();
    auto& print = b.windows->form<TPrintForm>();
    click("PrintTransparentButton");
    ASSERT_TRUE(print.isVisible());
    EXPECT_EQ(print.findChild<QLineEdit*>("LastRecEdit")->text(),
              QString::number(find<TrendPlot>("AbTrend1")->LastDisplayedRec()));
    auto* preview = print.findChild<TrendPreview*>();
    const QImage before = preview->grab().toImage();
    EXPECT_EQ(before.pixel(3, 3), qRgb(255, 255, 255));
    print.findChild<QLineEdit*>("LastRecEdit")->setText("7");
    QTest::keyClick(print.findChild<QLineEdit*>("LastRecEdit"), Qt::Key_Return);
    EXPECT_NE(preview->grab().toImage(), before);
    const int width = preview->width();
    auto* zoom = print.findChild<QComboBox*>("ZoomComboBox");
    zoom->setCurrentIndex(5);
    Q_EMIT zoom->activated(5);
    EXPECT_GT(preview->width(), width);
    QPrinter pdf(QPrinter::HighResolution);
    pdf.setOutputFileName(b.dir.filePath("print.pdf"));
    preview->PrintTrend(pdf, 100, 50);
    EXPECT_GT(QFileInfo(b.dir.filePath("print.pdf")).size(), 1000);
    print.findChild<QAbstractButton*>("ExitTransparentButton")->click();
}

TEST(ScopeFormProject, SwitchesAndItemsComeFromTheProjectAndGoBackUnchanged) {
    QByteArray project =
        "[Trend Form]\r\nCh1VrPowerButton=True\r\nCh2VrPowerButton=False\r\nCh3VrPowerButton=True\r\n"
        "Ch4VrPowerButton=False\r\nCh5VrPowerButton=False\r\nCh6VrPowerButton=False\r\nCh7VrPowerButton="
        "False\r\n"
        "Ch8VrPowerButton=True\r\n\r\nCh1ComboBox=2\r\nCh2ComboBox=-1\r\nCh3ComboBox=12\r\nCh4ComboBox=0\r\n"
        "Ch5ComboBox=0\r\nCh6ComboBox=0\r\nCh7ComboBox=0\r\nCh8ComboBox=5\r\n";
    ShellBench b(project);
    const TrendSession& session = b.tool->trend;
    EXPECT_TRUE(session.ChVrPowerButton[1] && !session.ChVrPowerButton[2]);
    EXPECT_EQ(session.ChannelItem[1], 2);
    EXPECT_EQ(b.windows->form<TScopeForm>().findChild<QComboBox*>("Ch3ComboBox")->currentIndex(), -1);
    b.tool->SaveProject();
    TrendSection written;
    readTrendSection(projectLines(readWhole(b.folder.file("default.prj")).bytes), written);
    EXPECT_EQ(written.ChComboBox, (std::array<int, 8>{2, -1, 12, 0, 0, 0, 0, 5}));
    EXPECT_TRUE(written.ChVrPowerButton[7]);
}

}  // namespace
}  // namespace kelvane

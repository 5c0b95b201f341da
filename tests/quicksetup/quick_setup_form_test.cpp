// The wizard in the real windows over a practice drive: opening, the four steps by mouse and keyboard, the
// project, writing and closing.

#include "quicksetup/quick_setup_form.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

#include "quicksetup/qs_source_form.h"
#include "shell/shell_bench.h"
#include "shell/shell_operator.h"
#include "ui/lamp.h"

namespace kelvane {

namespace {

struct WizardBench : ShellBench {
    TQuickSetupForm& wizard = windows->form<TQuickSetupForm>();
    TQSsourceForm& source = windows->form<TQSsourceForm>();

    explicit WizardBench(Family family = Family::Larch) { goOnLine(family); }
    void choose(const char* lamp) {
        trigger("QuickSetup");
        EXPECT_TRUE(source.isVisible());
        find<AbLED>(lamp, &source)->click();
        find<QAbstractButton>("OKTransparentButton", &source)->click();
    }
    void openFromDrive() {
        choose("DriveAbLED");
        EXPECT_TRUE(windows->initialForm.isVisible());
        EXPECT_FALSE(wizard.isVisible());
        EXPECT_TRUE(clock.advanceUntil([this] { return wizard.isVisible(); }, 60000));
        EXPECT_FALSE(windows->initialForm.isVisible());
        QApplication::setActiveWindow(&wizard);
    }
    template <class T>
    T* in(const QString& name) {
        return find<T>(name.toLatin1().constData(), &wizard);
    }
    QLineEdit* edit(int slot) { return in<QLineEdit>(slotControlName(slot)); }
    QComboBox* box(int slot) { return in<QComboBox>(slotControlName(slot)); }
    QString label(int slot) { return in<QLabel>(QLatin1String(quickSlot(slot).name) + "Label")->text(); }
    void type(int slot, const QString& text) {
        in<QTabWidget>("PageControl1")->setCurrentIndex(slot <= StepOneSlots.last ? 0 : 1);
        edit(slot)->setFocus();
        edit(slot)->selectAll();
        QTest::keyClicks(edit(slot), text);
    }
    void click(const char* button) { QTest::mouseClick(in<QPushButton>(button), Qt::LeftButton); }
    bool polls() {
        int count = 0;
        const QObject counting;
        QObject::connect(&tool->link, &RequestScheduler::statusDecoded, &counting, [&] { ++count; });
        return clock.advanceUntil([&] { return count >= 2; }, 20000);
    }
};

TEST(QuickSetupForm, CancelledSourcesGiveThePollBack) {
    WizardBench b;
    b.trigger("QuickSetup");
    EXPECT_EQ(b.source.windowTitle(), "Source of Parameter Settings");
    EXPECT_TRUE(b.find<AbLED>("DriveAbLED", &b.source)->isChecked());
    int cycles = 0;
    QObject::connect(&b.tool->link, &RequestScheduler::cycleEnded, [&] { ++cycles; });
    b.clock.advance(5000);
    EXPECT_EQ(cycles, 0) << "nothing goes out while the source is chosen";
    b.find<AbLED>("FileAbLED", &b.source)->click();
    EXPECT_FALSE(b.find<AbLED>("DriveAbLED", &b.source)->isChecked());
    b.source.reject();
    EXPECT_FALSE(b.wizard.isVisible());
    EXPECT_TRUE(b.polls());
}

class WizardOfFamily : public testing::TestWithParam<Family> {};
INSTANTIATE_TEST_SUITE_P(Nine, WizardOfFamily, testing::ValuesIn(AllFamilies),
                         [](const auto& row) { return std::string(familyName(row.param)); });

TEST_P(WizardOfFamily, ShowsWhatTheFamilyHasAndNothingElse) {
    WizardBench b(GetParam());
    b.openFromDrive();
    const FamilySetup& family = *familySetup(quint8(GetParam()));
    for (int slot = 1; slot <= SlotCount; ++slot) {
        SCOPED_TRACE(slot);
        const bool used = !slotAddress(slot, GetParam()).isEmpty();
        EXPECT_NE(b.in<QWidget>(slotControlName(slot))->isHidden(), used);
        EXPECT_EQ(b.label(slot), slotLabel(family, slot));
        if (!used) continue;
        EXPECT_EQ(b.in<QLabel>(QLatin1String(quickSlot(slot).name) + "UnitLabel")->text(),
                  slotUnit(family, slot));
        if (quickSlot(slot).control != SlotControl::List) continue;
        EXPECT_EQ(b.box(slot)->currentIndex(), b.tool->quickSetup.Slot[size_t(slot)].SlotValue);
    }
    EXPECT_EQ(b.in<QLabel>("TerminalLabel7")->text(), QLatin1String(family.terminals[6]));
    EXPECT_EQ(b.in<QStackedWidget>("PageControl3")->currentWidget()->objectName(),
              GetParam() == Family::Tilia ? "VonlyEngTabSheet" : "OtherEngTabSheet");
    EXPECT_EQ(b.in<QLabel>("S3Label4")->isHidden(), GetParam() == Family::Sorrel);
    b.wizard.setChinese(true);
    EXPECT_EQ(b.in<QStackedWidget>("PageControl3")->currentWidget()->objectName(),
              GetParam() == Family::Tilia ? "VonlyChtTabSheet" : "OtherChtTabSheet");
}

TEST(QuickSetupForm, KeepsBothStepButtonsEnabledBehindAWalkByButtonTabAndKeyboard) {
    WizardBench b;
    b.openFromDrive();
    auto* steps = b.in<QTabWidget>("PageControl1");
    auto* back = b.in<QPushButton>("BackStepBitBtn");
    auto* next = b.in<QPushButton>("NextStepBitBtn");
    b.click("NextStepBitBtn");
    EXPECT_EQ(steps->currentIndex(), 1);
    steps->setCurrentIndex(3);
    EXPECT_TRUE(back->isEnabled());
    EXPECT_FALSE(next->isEnabled());
    steps->setCurrentIndex(0);
    EXPECT_FALSE(back->isEnabled());
    // By Tab alone through every slot that the family has.
    b.box(1)->setFocus();
    for (int slot = 1; slot <= SlotCount; ++slot) {
        if (!b.tool->quickSetup.used(slot)) continue;
        ASSERT_EQ(b.wizard.focusWidget()->objectName(), slotControlName(slot));
        EXPECT_TRUE(b.wizard.focusWidget()->isVisible());
        QTest::keyClick(b.wizard.focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(b.wizard.focusWidget(), b.in<QPushButton>("OKBitBtn"));
    b.box(25)->setFocus();
    QTest::keyClick(b.box(25), Qt::Key_Backtab);
    EXPECT_EQ(b.wizard.focusWidget(), b.box(24));
    EXPECT_EQ(steps->currentIndex(), 2);
    b.wizard.close();
    EXPECT_EQ(steps->currentIndex(), 0);
    EXPECT_TRUE(back->isEnabled() && next->isEnabled()) << "kept: although the first page is in front";
    EXPECT_TRUE(b.polls());
}

TEST(QuickSetupForm, EditsTakeNumbersAndEnterAndComplainOnce) {
    WizardBench b;
    b.openFromDrive();
    b.type(8, "7 2a.-");
    EXPECT_EQ(b.edit(8)->text(), "72.-");
    b.edit(8)->clear();
    b.type(8, "72");
    QTest::keyClick(b.edit(8), Qt::Key_Return);
    EXPECT_EQ(b.tool->quickSetup.Slot[8].SlotValue, 7200);
    EXPECT_EQ(b.edit(8)->selectedText(), "72");
    EXPECT_TRUE(b.wizard.isVisible()) << "Enter presses no button";
    b.edit(9)->setFocus();
    EXPECT_EQ(b.edit(8)->text(), "72.00");
    EXPECT_EQ(b.in<QLabel>("S2para1MarkLabel")->text(), "\u25CF");
    EXPECT_EQ(b.in<QLabel>("ChangedLabel")->text(), "1 setting changed");
    EXPECT_TRUE(b.edit(8)->toolTip().contains("Limits: 50.00 to 400.00 Hz"));
    // The click that leaves the edit has done its work when the text was refused.
    b.type(9, "1-2");
    b.person.expectBox("Value is not Legal !! Please check it ...", "Error");
    b.click("OKBitBtn");
    EXPECT_EQ(b.edit(9)->text(), "50.00");
    EXPECT_TRUE(b.wizard.isVisible());
    b.type(9, "999");
    b.wizard.close();  // asks nothing
    EXPECT_EQ(b.tool->quickSetup.Slot[9].SlotValue, 5000);
}

// In the real box: nothing covers its text or its buttons.
TEST(QuickSetupForm, AsksAboveWhatWillChange) {
    const LangTable lang = LangTable::builtInEnglish();
    ShellOperator person(lang);
    QTimer::singleShot(0, [] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        const QRect panel = box->findChild<QWidget*>("PanelTableWidget")->geometry();
        for (const QWidget* other : {box->findChild<QWidget*>("qt_msgbox_label"),
                                     static_cast<QWidget*>(box->findChild<QDialogButtonBox*>())})
            EXPECT_FALSE(panel.intersects(other->geometry())) << other->metaObject()->className();
        EXPECT_GT(panel.width(), box->width() / 2);
        box->button(QMessageBox::Yes)->click();
    });
    const BoxPanel panel{
        .header = {"Setting", "In the drive"}, .rows = {{"01-00", "60.00 Hz"}}, .withoutRows = {}};
    EXPECT_EQ(person.boxOverPanel("Write?", "Cofirm", BoxIcon::Question, BoxButtons::YesNoOrLeave, panel),
              BoxAnswer::Yes);
}

TEST(QuickSetupForm, WritesOnYesAndClosesWithoutAFrameOnNo) {
    WizardBench b;
    const QString question = "Do you want write these settings to drive ?";
    b.openFromDrive();
    b.type(8, "65");
    b.person.expectBox(question, "Cofirm", BoxAnswer::Cancel);
    b.click("OKBitBtn");
    EXPECT_TRUE(b.wizard.isVisible()) << "Escape answers nothing";
    b.person.expectBox(question, "Cofirm", BoxAnswer::No);
    b.click("OKBitBtn");
    EXPECT_FALSE(b.wizard.isVisible());
    EXPECT_TRUE(b.polls());
    b.openFromDrive();
    EXPECT_EQ(b.edit(8)->text(), "60.00") << "No has written nothing";
    b.type(8, "65");
    b.person.expectBox(question, "Cofirm", BoxAnswer::Yes);
    b.click("OKBitBtn");
    EXPECT_TRUE(b.windows->initialForm.isVisible());
    EXPECT_TRUE(b.clock.advanceUntil([&] { return !b.wizard.isVisible(); }, 60000));
    EXPECT_FALSE(b.windows->initialForm.isVisible());
    EXPECT_TRUE(b.polls());
    b.openFromDrive();
    EXPECT_EQ(b.edit(8)->text(), "65.00");
}

// The wait of the first reading is left; the second is saved, and opened again in another run.
TEST(QuickSetupForm, AProjectKeepsTheControlsAndGivesThemBack) {
    WizardBench b;
    b.choose("DriveAbLED");
    b.clock.advance(100);
    QTest::keyClick(&b.windows->initialForm, Qt::Key_Escape);
    EXPECT_FALSE(b.windows->initialForm.isVisible() || b.wizard.isVisible());
    EXPECT_TRUE(b.polls());
    b.openFromDrive();
    b.type(20, "12.5");
    b.box(25)->setFocus();
    QTest::keyClick(b.box(25), Qt::Key_Home);
    b.wizard.close();
    const QString path = b.dir.filePath("line.prj");
    b.person.expectSave("Project File(*.prj)|*.prj", "prj", path);
    b.tool->SaveTransparentButtonClick();
    const QString saved = QString::fromLatin1(readWhole(path).bytes);
    EXPECT_TRUE(saved.contains("|100|0|12.5|20.0\r\nStep3    =")) << saved.toStdString();
    EXPECT_TRUE(saved.contains("Step4Out = 0,1,2,20,-1,-1,-1,-1\r\n"));

    WizardBench other;
    other.person.expectOpen("Project File(*.prj)|*.prj", path);
    other.tool->OpenTransparentButtonClick();
    other.choose("FileAbLED");
    EXPECT_EQ(other.edit(20)->text(), "12.5");
    EXPECT_EQ(other.box(25)->currentIndex(), 0);
    EXPECT_EQ(other.in<QLabel>("SourceLabel")->text(), "Values of the project file (Larch)");
}

}  // namespace

}  // namespace kelvane

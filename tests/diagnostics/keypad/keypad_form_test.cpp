// The keypad's window in the whole tool, over a practice drive.
#include "diagnostics/keypad/keypad_form.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QComboBox>
#include <QLineEdit>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTest>
#include <QWheelEvent>

#include "shell/shell_bench.h"
#include "ui/led_text.h"
#include "ui/panel_key.h"
#include "ui/seven_segment_label.h"

namespace kelvane {
namespace {

struct KeypadWindow : ShellBench {
    TKeypadForm& form;
    Keypad& keypad;

    explicit KeypadWindow(Family family = Family::Larch)
        : form(windows->form<TKeypadForm>()), keypad(tool->keypad) {
        goOnLine(family);
        clock.advance(500);
        windows->openWindow(OwnerKeypad);
        form.activateWindow();
    }
    drive::PracticeDrive& drive() { return practice.driveOf(tool->practiceFamily()); }
    template <class T>
    T& at(const char* name) {
        return *find<T>(name, &form);
    }
    void click(const char* name) { QTest::mouseClick(&at<QWidget>(name), Qt::LeftButton); }
    // Through the window system, which holds back what a modal window blocks.
    void clickInWindow(const char* name) {
        const QWidget& key = at<QWidget>(name);
        QTest::mouseClick(form.windowHandle(), Qt::LeftButton, {}, key.mapTo(&form, key.rect().center()));
    }
    QString shown(const char* name) { return at<QWidget>(name).property("text").toString(); }
    int page() { return at<QStackedWidget>("PageControl1").currentIndex(); }
    // Commands that were answered while doing something and a while after: each has been on the wire.
    QString frames(const std::function<void()>& doing, int ms = 1000) {
        QStringList sent;
        const QObject listening;
        QObject::connect(&tool->link, &RequestScheduler::answered, &listening,
                         [&](quint8, const QString& command, const QByteArray&) {
                             if (command.startsWith("FF06")) sent += command;
                         });
        doing();
        clock.advance(ms);
        return sent.join(' ');
    }
};

TEST(KeypadForm, HasItsShapeAndEveryControl) {
    KeypadWindow w;
    EXPECT_FALSE(w.form.isModal());
    EXPECT_EQ(w.form.tag(), 1);
    const QString controls =
        "MainTabSheet ParaInfoTabSheet ErrInfoTabSheet StartUpTabSheet BackgroundImage LeadChVrLabel "
        "underLineVrLabel AVrLabel VrLabel5 VrLabel6 DataVrLabel DefLabel MinLabel MaxLabel UnitVrLabel "
        "LockImage EditTransparentButton ErrDescriptLabel InitialVrLabel InitialVrIndicator ";
    for (const QString& name : controls.split(' ')) w.find<QWidget>(qPrintable(name), &w.form);
    // Every key is reached by Tab, speaks, and has room for its name.
    for (const char* name : {"JOGTransparentButton", "ModeTransparentButton", "PUTransparentButton",
                             "LeftArrowTransparentButton", "PROGTransparentButton", "DIRTransparentButton",
                             "RUNTransparentButton", "STOPTransparentButton"}) {
        auto& key = w.at<PanelKey>(name);
        EXPECT_TRUE(key.focusPolicy() & Qt::TabFocus) << name;
        EXPECT_FALSE(key.toolTip().isEmpty()) << name;
        EXPECT_LE(key.fontMetrics().horizontalAdvance(key.text()), key.width() - 8) << name;
    }
    w.form.setZoom(2);
    EXPECT_EQ(w.form.size(), QSize(502, 784));
    EXPECT_EQ(w.looks.text("keypad/zoom"), "2");
}

TEST(KeypadForm, KeepsItsColoursInADarkPalette) {
    KeypadWindow w;
    const QPalette usual = QApplication::palette();
    for (int page = 0; page < 2; ++page) {
        const QImage light = w.form.grab().toImage();
        QApplication::setPalette(QPalette(QColor(45, 45, 48)));
        const QImage dark = w.form.grab().toImage();
        QApplication::setPalette(usual);
        EXPECT_EQ(light, dark) << page;
        w.click("PROGTransparentButton");
    }
}

TEST(KeypadForm, ShowsThePagesOfTheEngine) {
    KeypadWindow w;
    EXPECT_EQ(w.page(), 0);
    EXPECT_EQ(w.at<QScrollBar>("FreqScrollBar").maximum(), w.tool->link.DriveStatus.MaxFreqWord);
    EXPECT_EQ(w.at<LedText>("FledLabel").color(), QColor(Qt::red));
    EXPECT_EQ(w.at<LedText>("HledLabel").color(), QColor(Qt::white));
    const auto spoken = [&](const char* led) {
        return QAccessible::queryAccessibleInterface(&w.at<LedText>(led))->text(QAccessible::Value);
    };
    EXPECT_EQ(spoken("STOPledLabel") + spoken("RUNledLabel"), "onoff");
    w.click("RUNTransparentButton");
    w.clock.advance(300);
    EXPECT_EQ(spoken("RUNledLabel") + " " + spoken("STOPledLabel"), "on flashing") << "it runs at nothing";
    for (const char* heading : {"Output Frequency", "User Define", "Output Current"}) {
        w.click("ModeTransparentButton");
        EXPECT_EQ(w.shown("HeadInfoLabel"), heading);
    }
    w.click("ModeTransparentButton");
    EXPECT_TRUE(w.at<QWidget>("FVrLabel").isVisible() && w.at<QWidget>("VrLabel7").isVisible());
    w.click("PROGTransparentButton");
    EXPECT_EQ(w.page(), 1);
    auto& box = w.at<QComboBox>("SelPrComboBox");
    EXPECT_GT(box.count(), 50);
    const int entry = box.findText("01-00");
    box.setFocus();
    const auto goDown = [&] {
        for (int i = box.currentIndex(); i < entry; ++i) QTest::keyClick(&box, Qt::Key_Down);
    };
    EXPECT_EQ(w.frames(goDown), "");
    EXPECT_EQ(w.shown("PrNumVrLabel"), "01-00");
    w.trigger("RaiseFaultItem");
    w.clock.advance(1000);
    EXPECT_EQ(w.page(), 2);
    EXPECT_EQ(w.shown("ErrNameVrLabel"), "oL1 ");
    w.click("STOPTransparentButton");
    w.clock.advance(1000);
    EXPECT_EQ(w.page(), 0);
    w.tool->link.Initial();
    EXPECT_EQ(w.page(), 3);
    EXPECT_TRUE(w.at<QWidget>("OnLineTransparentButton").isVisible());
    EXPECT_FALSE(w.at<QWidget>("STOPTransparentButton").isVisible());
}

TEST(KeypadForm, TakesAFrequencyFromEditAndSliderAndFromNobodyElse) {
    KeypadWindow w;
    auto& edit = w.at<QLineEdit>("InputEdit");
    w.clickInWindow("InputEdit");
    ASSERT_TRUE(edit.hasFocus());
    EXPECT_EQ(w.frames([&] {
        QTest::keyClicks(&edit, "1x5 .e0k");
        EXPECT_EQ(edit.text(), "15.0");
        QTest::keyClick(&edit, Qt::Key_Return);
    }),
              "FF06200105DC");
    EXPECT_EQ(edit.selectedText(), "15.0");
    w.person.expectBox("Value is not Legal !! Please check it ...", "Error Message");
    EXPECT_EQ(w.frames([&] {
        QTest::keyClicks(&edit, "5-5");
        QTest::keyClick(&edit, Qt::Key_Enter);
    }),
              "");
    EXPECT_EQ(edit.text(), "15.00");

    auto& slider = w.at<QScrollBar>("FreqScrollBar");
    slider.setFocus();
    EXPECT_EQ(w.frames([&] {
        for (int i = 0; i < 5; ++i) QTest::keyClick(&slider, Qt::Key_PageUp);
        EXPECT_EQ(w.shown("displayVrLabel"), "20.00");
    }),
              "FF06200107D0");
    EXPECT_EQ(w.frames([&] {
        w.drive().motor().setCommandHz(33);
        w.clock.advance(2000);
        EXPECT_EQ(slider.value(), 3300);
    }),
              "")
        << "the drive moved it";
    EXPECT_EQ(w.frames([&] {
        edit.setFocus();
        QWheelEvent wheel(QPointF(5, 5), slider.mapToGlobal(QPointF(5, 5)), {}, {0, 120}, {}, {}, {}, false);
        QApplication::sendEvent(&slider, &wheel);
    }),
              "")
        << "a wheel that passes by";
}

TEST(KeypadForm, JogsAsLongAsTheKeyIsHeldAndTheWindowIsThere) {
    KeypadWindow w;
    auto& jog = w.at<PanelKey>("JOGTransparentButton");
    EXPECT_EQ(w.frames([&] {
        QTest::mousePress(&jog, Qt::LeftButton);
        w.clock.advance(1500);
        w.form.close();
    }),
              "FF0620000003 FF0620000001");
    EXPECT_EQ(w.form.tag(), 0);
    w.windows->openWindow(OwnerKeypad);
    w.form.activateWindow();
    jog.setFocus();
    EXPECT_EQ(w.frames([&] {
        QTest::keyPress(&jog, Qt::Key_Space);
        w.clock.advance(1500);
        QTest::keyRelease(&jog, Qt::Key_Space);
    }),
              "FF0620000003 FF0620000001");
    // A window system may tell of a held key as of many releases and presses, each pair at one moment.
    EXPECT_EQ(w.frames([&] {
        const auto key = [&](QEvent::Type type, quint64 timestamp) {
            QKeyEvent event(type, Qt::Key_Space, {}, 65, 32, 0, QStringLiteral(" "));
            event.setTimestamp(timestamp);
            QCoreApplication::sendEvent(w.form.windowHandle(), &event);
        };
        key(QEvent::KeyPress, 1000);
        for (quint64 at = 1500; at < 3000; at += 40) {
            key(QEvent::KeyRelease, at);
            key(QEvent::KeyPress, at);
            w.clock.advance(40);
        }
        EXPECT_TRUE(w.keypad.JogHeld);
        key(QEvent::KeyRelease, 3000);
        w.clock.advance(50);
        EXPECT_FALSE(w.keypad.JogHeld);
    }),
              "FF0620000003 FF0620000001");
}

TEST(KeypadForm, IsStoppedByF12FromEveryWindow) {
    KeypadWindow w;
    const auto f12 = [&](QWidget& in) {
        return w.frames([&] { QTest::keyClick(in.windowHandle(), Qt::Key_F12); });
    };
    EXPECT_EQ(f12(w.form), "FF0620000001");
    EXPECT_EQ(f12(*w.mainForm), "FF0620000001");
    w.windows->showModal(w.windows->aboutForm);
    EXPECT_EQ(f12(w.windows->aboutForm), "FF0620000001");
    w.windows->aboutForm.close();
    w.form.close();
    EXPECT_EQ(f12(*w.mainForm), "") << "no window with a STOP";
}

// Trend and Monitor are modal: the keypad that is opened over them stays usable.
TEST(KeypadForm, StaysUsableOverTheModalWindowThatOpenedIt) {
    KeypadWindow w;
    w.form.close();
    w.windows->showModal(w.windows->aboutForm);
    w.windows->openWindow(OwnerKeypad);
    EXPECT_EQ(w.frames([&] { w.clickInWindow("STOPTransparentButton"); }), "FF0620000001");
    w.form.close();
    w.windows->aboutForm.close();
    w.windows->openWindow(OwnerKeypad);
    EXPECT_EQ(w.frames([&] { w.clickInWindow("STOPTransparentButton"); }), "FF0620000001");
}

TEST(KeypadForm, ClosesWhenAnotherWindowTakesTheLine) {
    KeypadWindow w;
    w.windows->openWindow(OwnerParameter);
    EXPECT_FALSE(w.form.isVisible());
    w.windows->parameterForm.close();
    w.clock.advance(1000);
    EXPECT_FALSE(w.form.isVisible());
    EXPECT_TRUE(w.keypad.GetDataTimer.Enabled());
}

}  // namespace
}  // namespace kelvane

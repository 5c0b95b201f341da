#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QDialog>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include "base/manual_tick_clock.h"
#include "ui/display_label.h"
#include "ui/icons.h"
#include "ui/lamp.h"
#include "ui/led_text.h"
#include "ui/panel_key.h"
#include "ui/path_label.h"
#include "ui/power_button.h"
#include "ui/readable_colours.h"
#include "ui/seven_segment_label.h"
#include "ui/transparent_button.h"

namespace kelvane {
namespace {

QString spoken(QWidget& widget, QAccessible::Text kind) {
    return QAccessible::queryAccessibleInterface(&widget)->text(kind);
}

// Number of pixels in which two pictures of a widget differ when both are drawn without colour.
int differentInGrey(const QPixmap& a, const QPixmap& b) {
    const QImage x = a.toImage().convertToFormat(QImage::Format_Grayscale8);
    const QImage y = b.toImage().convertToFormat(QImage::Format_Grayscale8);
    int count = 0;
    for (int row = 0; row < x.height(); ++row)
        for (int column = 0; column < x.width(); ++column)
            count += std::abs(qGray(x.pixel(column, row)) - qGray(y.pixel(column, row))) > 40;
    return count;
}

TEST(Lamps, OnAndOffDifferWithoutColourAndAreSpoken) {
    AbLED lamp("On Line");
    lamp.setColor(lamp.palette().color(QPalette::Window));
    const QPixmap off = lamp.grab();
    EXPECT_EQ(spoken(lamp, QAccessible::Value), "off");
    lamp.setProperty("checked", true);
    EXPECT_GT(differentInGrey(off, lamp.grab()), 10);
    EXPECT_EQ(spoken(lamp, QAccessible::Name), "On Line");
    EXPECT_EQ(spoken(lamp, QAccessible::Value), "on");
    lamp.setProperty("flashing", true);
    EXPECT_EQ(spoken(lamp, QAccessible::Value), "flashing");

    LedText led("RUN");
    led.resize(40, 24);
    const QPixmap dark = led.grab();
    led.setLit(true);
    EXPECT_GT(differentInGrey(dark, led.grab()), 5);
    EXPECT_EQ(spoken(led, QAccessible::Name), "RUN");
    EXPECT_EQ(spoken(led, QAccessible::Value), "on");
}

TEST(AbLED, IsPressedOnlyWhenClickableAndChangesByItselfOnlyInAChoice) {
    QWidget window;
    auto* column = new QVBoxLayout(&window);
    AbLED drive("Source from Drive");
    AbLED file("Source from File");
    column->addWidget(&drive);
    column->addWidget(&file);
    window.show();
    QSignalSpy clicks(&file, &AbLED::clicked);
    QSignalSpy doubles(&file, &AbLED::doubleClicked);
    QTest::mouseClick(&file, Qt::LeftButton);
    EXPECT_EQ(clicks.size(), 0);
    QTest::mouseDClick(&file, Qt::LeftButton);
    EXPECT_EQ(doubles.size(), 1) << "a lamp that only shows still tells a double click";

    for (AbLED* lamp : {&drive, &file}) lamp->setClickable(true);
    QTest::mouseClick(&file, Qt::LeftButton);
    EXPECT_EQ(clicks.size(), 1);
    EXPECT_FALSE(file.isChecked());
    for (AbLED* lamp : {&drive, &file}) lamp->setAutoExclusive(true);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&file)->role(), QAccessible::RadioButton);
    drive.setChecked(true);
    QTest::keyClick(&file, Qt::Key_Space);
    EXPECT_TRUE(file.isChecked());
    EXPECT_FALSE(drive.isChecked());
}

TEST(LampFlasher, BlinksEveryThreeHundredMillisecondsAndRestsWhenNothingFlashes) {
    ManualTickClock clock;
    LampFlasher flasher(clock);
    AbLED run("RUN");
    {
        AbLED gone("JOG");
        flasher.watch(&gone);
    }
    flasher.watch(&run);
    run.setChecked(true);
    EXPECT_FALSE(clock.step()) << "no tick while nothing flashes";
    run.setFlashing(true);
    clock.advance(299);
    EXPECT_TRUE(run.lit());
    clock.advance(1);
    EXPECT_FALSE(run.lit());
    clock.advance(300);
    EXPECT_TRUE(run.lit());
    clock.advance(300);
    run.setFlashing(false);
    EXPECT_TRUE(run.lit());
    EXPECT_FALSE(clock.step());
    run.setFlashing(true);
    EXPECT_TRUE(run.lit()) << "it begins bright, however it ended";
}

// Texts come from drives and language files: they are no mark-up; "&" marks a letter of a control alone.
TEST(Texts, StandAsTheyAreAndReadableInTheirColours) {
    VrLabel label("<b>OL</b> & 5");
    EXPECT_EQ(label.textFormat(), Qt::PlainText);
    EXPECT_GE(label.sizeHint().width(), label.fontMetrics().horizontalAdvance("<b>OL</b> & 5"));
    label.setProperty("color", QColor(Qt::white));
    EXPECT_GE(contrast(Qt::white, label.palette().color(QPalette::Base)), 3.5);

    TransparentButton button(icon(Icon::Save), "Save");
    button.setAccessibleName("Save");
    button.setProperty("text", "Spei&chern && Lesen vom Frequenzumrichter");
    EXPECT_EQ(spoken(button, QAccessible::Name), "Speichern & Lesen vom Frequenzumrichter");
    EXPECT_GT(button.sizeHint().width(), button.fontMetrics().horizontalAdvance(button.accessibleName()));
    AbLED choice("&Drive");
    AbLED sign("&Fail");
    choice.setClickable(true);
    VrPowerButton power("&Start");
    TransparentButton print(icon(Icon::Print), "Print");
    print.setShortcut(QKeySequence::Print);
    print.setText("&Drucken");
    EXPECT_EQ(button.shortcut(), QKeySequence("Alt+C"));
    EXPECT_EQ(choice.shortcut(), QKeySequence("Alt+D"));
    EXPECT_EQ(power.shortcut(), QKeySequence("Alt+S"));
    EXPECT_TRUE(sign.shortcut().isEmpty());
    EXPECT_EQ(print.shortcut(), QKeySequence(QKeySequence::Print));
    EXPECT_EQ(spoken(sign, QAccessible::Name), "Fail");
    EXPECT_EQ(AbLED("Fail").sizeHint(), sign.sizeHint());
}

TEST(Buttons, SwitchByMouseAndKeyAndShowItWithoutColour) {
    TransparentButton plain(icon(Icon::Save), "Save");
    QSignalSpy pressed(&plain, &QToolButton::clicked);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Space}) QTest::keyClick(&plain, key);
    EXPECT_EQ(pressed.size(), 2);

    VrPowerButton button("Start & Stop");
    button.setColor(button.palette().color(QPalette::Button));
    const QPixmap off = button.grab();
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_TRUE(button.isChecked());
    EXPECT_GT(differentInGrey(off, button.grab()), 20);
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_FALSE(button.isChecked());
    EXPECT_EQ(spoken(button, QAccessible::Value), "off");
}

TEST(CalLabelString, LeavesOutFoldersBeforeTheFileName) {
    const auto characters = [](const QString& text) { return static_cast<int>(text.size()); };
    const std::tuple<const char*, int, const char*> rows[] = {
        {"/home/anna/drives/pump.txt", 26, "/home/anna/drives/pump.txt"},
        {"/home/anna/drives/pump.txt", 21, "/home/ann.../pump.txt"},
        {"C:\\Data\\Drives\\pump.txt", 17, "C:\\Da...\\pump.txt"},
        {"/home/anna/drives/pump.txt", 11, "pump.txt"},
        {"/home/anna/pumpenantrieb.txt", 13, "pumpe...b.txt"},
        {"/home/anna/pump.txt", 2, ""}};
    for (const auto& [path, width, shown] : rows) EXPECT_EQ(calLabelString(path, width, characters), shown);
}

TEST(PathLabel, FitsItsTextToItsWidthAndKeepsThePathWhole) {
    PathLabel label;
    const QString path = "/home/anna/commissioning/hall seven/line 3/drives/pump.txt";
    label.setPath(path);
    label.resize(label.sizeHint());
    EXPECT_EQ(label.text(), path);
    label.resize(label.fontMetrics().averageCharWidth() * 25, 20);
    label.show();
    EXPECT_TRUE(label.text().endsWith("/pump.txt"));
    EXPECT_LE(label.fontMetrics().horizontalAdvance(label.text()), label.width());
    EXPECT_EQ(label.toolTip(), path);
    label.setPath("/home/<b>pump</b>.txt");
    EXPECT_TRUE(label.toolTip().contains("&lt;b&gt;pump")) << "no mark-up";
}

TEST(SevenSegmentLabel, PutsPointsBehindTheirDigits) {
    const auto places = segmentPlaces("-.5");
    ASSERT_EQ(places.size(), 2U);
    EXPECT_TRUE(places[0].point);
    EXPECT_EQ(segmentPlaces("1..").size(), 2U);
    SevenSegmentLabel label;
    label.resize(160, 50);
    label.setColor(Qt::black);
    label.setProperty("text", "oL1 ");
    EXPECT_EQ(spoken(label, QAccessible::Value), "oL1 ");
    const QPixmap overload = label.grab();
    label.setText("oL2 ");
    EXPECT_GT(differentInGrey(overload, label.grab()), 10);
}

struct HeldKey {
    QWidget window;
    ManualTickClock clock;
    PanelKey key{clock, "JOG", &window};
    QPushButton other{"other", &window};
    QStringList heard;
    HeldKey() {
        window.resize(200, 100);
        key.setGeometry(10, 10, 60, 40);
        QObject::connect(&key, &PanelKey::heldDown, &window, [this] { heard += "down"; });
        QObject::connect(&key, &PanelKey::letGo, &window, [this] { heard += "up"; });
        window.show();
        window.activateWindow();
        key.setFocus();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    void press() {
        QTest::mousePress(&key, Qt::LeftButton);
        EXPECT_EQ(heard.join(' '), "down");
    }
};

TEST(PanelKey, IsHeldAsLongAsAPersonHoldsIt) {
    const QList<std::function<void(HeldKey&)>> endings = {
        [](HeldKey& k) { QTest::mouseRelease(&k.key, Qt::LeftButton); },
        [](HeldKey& k) { QTest::mouseRelease(&k.key, Qt::LeftButton, {}, QPoint(150, 90)); },
        [](HeldKey& k) { k.other.setFocus(); },
        [](HeldKey& k) { k.window.hide(); },
        [](HeldKey& k) { k.key.setVisible(false); },
        [](HeldKey& k) { k.key.setEnabled(false); },
        [](HeldKey&) {
            QDialog box;
            box.setModal(true);
            box.show();
        },
    };
    for (qsizetype i = 0; i < endings.size(); ++i) {
        HeldKey k;
        k.press();
        endings[i](k);
        EXPECT_EQ(k.heard.join(' '), "down up") << i;
        QTest::mouseRelease(&k.key, Qt::LeftButton);
        EXPECT_EQ(k.heard.join(' '), "down up") << i;
    }
    HeldKey outAndIn;
    outAndIn.press();
    for (const QPoint place : {QPoint(150, 90), QPoint(5, 5)}) QTest::mouseMove(&outAndIn.key, place);
    EXPECT_EQ(outAndIn.heard.join(' '), "down");
}

TEST(PanelKey, TakesARepeatedKeyForNoNewPress) {
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        HeldKey k;
        QSignalSpy clicks(&k.key, &PanelKey::clicked);
        QTest::keyPress(&k.key, key);
        for (int i = 0; i < 3; ++i) {
            QKeyEvent up(QEvent::KeyRelease, key, {}, {}, true);
            QKeyEvent down(QEvent::KeyPress, key, {}, {}, true);
            QApplication::sendEvent(&k.key, &up);
            QApplication::sendEvent(&k.key, &down);
        }
        EXPECT_TRUE(k.key.isDown());
        QTest::keyRelease(&k.key, key);
        EXPECT_EQ(k.heard.join(' '), "down up");
        EXPECT_EQ(clicks.count(), 1);
    }
}

}  // namespace
}  // namespace kelvane

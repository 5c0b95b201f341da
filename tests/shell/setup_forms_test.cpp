// The windows around the link, by their object names: com setup and its helpers over a practice drive, the
// notices and questions of the link.
#include <gtest/gtest.h>

#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>

#include "base/manual_tick_clock.h"
#include "bench/scripted_operator.h"
#include "bench/stub_port.h"
#include "catalogue/identification.h"
#include "drive/parameter_data.h"
#include "drive/practice_port.h"
#include "link/task_table.h"
#include "shell/about_form.h"
#include "shell/ce_message_form.h"
#include "shell/com_setup_form.h"
#include "shell/connect_form.h"
#include "shell/initial_form.h"
#include "shell/input_form.h"
#include "shell/logo_form.h"
#include "shell/message_form.h"
#include "shell/password_form.h"
#include "ui/lamp.h"
#include "ui/scanner.h"

namespace kelvane {
namespace {

template <class Widget>
Widget& named(const QWidget& window, const char* name) {
    auto* found = window.findChild<Widget*>(QLatin1String(name));
    if (!found) throw std::runtime_error(name);
    return *found;
}

void choose(QComboBox& box, const QString& text) {
    box.setFocus();
    const qint64 wanted = box.findText(text);
    ASSERT_GE(wanted, 0) << text.toStdString();
    while (box.currentIndex() < wanted) QTest::keyClick(&box, Qt::Key_Down);
    while (box.currentIndex() > wanted) QTest::keyClick(&box, Qt::Key_Up);
}

void click(QWidget& window, const char* name) {
    QTest::mouseClick(&named<QWidget>(window, name), Qt::LeftButton);
}

void clickRadio(QWidget& window, const char* name) { named<QRadioButton>(window, name).click(); }

bool lit(const QWidget& window, const char* name) { return named<AbLED>(window, name).isChecked(); }

// A practice drive at 9600, 7, N, 2 in ASCII; com setup's port and the link's port share its line.
struct Room {
    ManualTickClock clock;
    FixedWallClock wall{QDateTime(QDate(2026, 3, 2), QTime(9, 8, 7, 60))};
    ScriptedOperator person;
    drive::PracticeStation station{clock, drive::familyData(Family::Larch)};
    drive::PracticePort linkPort{clock, station.line};
    LangTable lang = LangTable::builtInEnglish();
    RequestScheduler link{{clock, wall, person, linkPort, lang}};
    GroupNameTable groupNames;
    DriveIdentification identification{link, groupNames, {person, lang}};
    ComSetup setup{link, station.port, clock, {person, lang}};
    PortDirectory ports =
        PortDirectory::fromText(QStringLiteral("3=practice:Tilia\n4=/dev/no-such-device\n"));
    TComSetupForm form{setup, ports};
    TConnectForm connectForm{setup, clock, &form};

    void open() {
        ASSERT_TRUE(setup.mayOpen());
        form.show();
    }
    void testIsOver() {
        clock.advanceUntil([this] { return !setup.RxTimer.Enabled(); }, 60000);
    }
    std::string portInfo() { return named<QLabel>(form, "PortInfoLabel").text().toStdString(); }
};

TEST(ComSetupForm, BoxesFollowTheHandAndTheRecord) {
    Room room;
    room.open();
    choose(named<QComboBox>(room.form, "ModeComboBox"), QStringLiteral("RTU"));
    EXPECT_EQ(named<QComboBox>(room.form, "DataBitsComboBox").currentIndex(), 1);
    EXPECT_FALSE(named<QComboBox>(room.form, "DataBitsComboBox").isEnabled());
    for (const auto& [box, text] : {std::pair("ParityComboBox", "E"),
                                    {"StopBitsComboBox", "1"},
                                    {"BaudComboBox", "19200"},
                                    {"ComPortComboBox", "3"}})
        choose(named<QComboBox>(room.form, box), QString::fromLatin1(text));
    EXPECT_EQ(room.setup.port().settings(), (PortSettings{3, 19200, 8, ComParity::Even, 1}));
    EXPECT_EQ(room.link.ComMode, 1);
    clickRadio(room.form, "AutoDetectRadioButton");
    for (const auto* name :
         {"ModeComboBox", "BaudComboBox", "DataBitsComboBox", "ParityComboBox", "StopBitsComboBox"})
        EXPECT_FALSE(named<QWidget>(room.form, name).isEnabled()) << name;
    EXPECT_TRUE(named<QWidget>(room.form, "ComPortComboBox").isEnabled());
    clickRadio(room.form, "ManualRadioButton");
    EXPECT_TRUE(named<QWidget>(room.form, "BaudComboBox").isEnabled());
    EXPECT_FALSE(named<QWidget>(room.form, "DataBitsComboBox").isEnabled()) << "still RTU";
    // A rate of a project file that the box does not offer is shown, and no handler answers.
    room.setup.BaudComboBoxChange(QStringLiteral("14400"));
    EXPECT_EQ(named<QComboBox>(room.form, "BaudComboBox").currentText(), QStringLiteral("14400"));
    EXPECT_EQ(room.setup.port().settings().Baud, 14400);
}

TEST(ComSetupForm, TellsWhatStandsBehindTheNumber) {
    Room room;
    room.open();
    auto& box = named<QComboBox>(room.form, "ComPortComboBox");
    choose(box, QStringLiteral("3"));
    EXPECT_EQ(room.portInfo(), "practice drive Tilia, answers at ASCII, 9600, 7, N, 2");
    choose(box, QStringLiteral("4"));
    EXPECT_EQ(room.portInfo(), "/dev/no-such-device, not connected");
    room.form.close();
    room.ports = PortDirectory::fromText(QStringLiteral("4=practice:Aspen\n"));
    room.form.show();
    EXPECT_EQ(room.portInfo(), "practice drive Aspen, answers at ASCII, 9600, 7, N, 2");
}

TEST(ComSetupForm, TestByHandThenOnLine) {
    Room room;
    TInitialForm wait(room.link, room.clock);
    room.open();
    EXPECT_FALSE(named<QWidget>(room.form, "OKBitBtn").isEnabled());
    click(room.form, "TestButton");
    EXPECT_TRUE(named<QWidget>(room.form, "OKBitBtn").isEnabled()) << "before any result";
    EXPECT_FALSE(lit(room.form, "SuccessAbLED") || lit(room.form, "FailAbLED"));
    room.testIsOver();
    EXPECT_TRUE(lit(room.form, "SuccessAbLED"));
    EXPECT_TRUE(named<QPushButton>(room.form, "OKBitBtn").isDefault());
    EXPECT_EQ(room.form.focusWidget()->objectName(), QStringLiteral("OKBitBtn"));

    room.person.expectBox(room.lang.MsgStr(Message::GoOnLine), QStringLiteral("Cofirm"), BoxAnswer::Yes);
    click(room.form, "OKBitBtn");
    EXPECT_FALSE(room.form.isVisible());
    ASSERT_TRUE(room.link.TxTimer.Enabled());
    room.setup.awaitDrive();
    EXPECT_TRUE(wait.isVisible());
    QTest::keyClick(&wait, Qt::Key_Escape);
    wait.close();
    EXPECT_TRUE(wait.isVisible());
    EXPECT_FALSE(wait.windowFlags() & Qt::WindowCloseButtonHint);
    room.clock.advanceUntil([&] { return !wait.isVisible(); }, 60000);
    EXPECT_EQ(room.link.DriveStatus.DriveReady, 1) << "closed by the first good status reply";
}

TEST(ComSetupForm, SilenceAndMissingPort) {
    Room room;
    room.open();
    choose(named<QComboBox>(room.form, "BaudComboBox"), QStringLiteral("1200"));
    click(room.form, "TestButton");
    room.person.expectBox(room.lang.MsgStr(Message::ComTimeout), QStringLiteral("Warning"));
    room.testIsOver();
    EXPECT_TRUE(lit(room.form, "FailAbLED"));
    EXPECT_TRUE(room.form.isVisible());
    const auto& advice = named<QLabel>(room.form, "PortErrorLabel");
    EXPECT_TRUE(advice.isVisible() && advice.text().contains(QStringLiteral("Auto-Detect")));
    EXPECT_TRUE(named<QPushButton>(room.form, "TestButton").isDefault());

    room.station.port.unplug();
    room.person.expectBox(room.lang.MsgStr(Message::NoComPort), QStringLiteral("Error Message"));
    click(room.form, "TestButton");
    EXPECT_EQ(named<QLabel>(room.form, "PortErrorLabel").text(), room.station.port.openError());
    EXPECT_TRUE(named<QLabel>(room.form, "PortErrorLabel").isVisible());
    room.station.port.plugIn();
    click(room.form, "TestButton");
    EXPECT_FALSE(named<QLabel>(room.form, "PortErrorLabel").isVisible());
    room.form.close();
    EXPECT_FALSE(room.setup.RxTimer.Enabled());
    EXPECT_FALSE(room.station.port.Open());
}

TEST(ConnectForm, ShowsTheWalkAndEveryWayOutEndsIt) {
    Room room;
    room.open();
    const auto walk = [&] {
        clickRadio(room.form, "AutoDetectRadioButton");
        click(room.form, "TestButton");
        EXPECT_FALSE(room.connectForm.isVisible());
        room.clock.advanceUntil([&] { return room.connectForm.isVisible(); }, 2000);
        ASSERT_TRUE(room.connectForm.isVisible() && room.connectForm.isModal());
    };
    walk();
    EXPECT_EQ(named<QLabel>(room.connectForm, "Label1").text(), QStringLiteral("Baud rate 9600"));
    EXPECT_EQ(named<QLabel>(room.connectForm, "Label2").text(),
              QStringLiteral("Modbus ASCII mode, protocol <7, N, 2 >"));
    room.person.expectBox(room.lang.MsgStr(Message::AutoDetectSuccess), QStringLiteral("Cofirm"),
                          BoxAnswer::Ok, [&] { EXPECT_FALSE(room.connectForm.isVisible()); });
    room.testIsOver();
    EXPECT_EQ(room.station.port.writes().size(), 2);
    EXPECT_TRUE(lit(room.form, "SuccessAbLED"));
    EXPECT_TRUE(named<QRadioButton>(room.form, "ManualRadioButton").isChecked());

    room.station.line.options().wire.Baud = 115200;
    walk();
    const auto& scanner = named<VrScanner>(room.connectForm, "VrScanner1");
    EXPECT_EQ(scanner.position(), -1);
    QList<int> positions;
    QObject::connect(&scanner, &VrIndicator::positionChanged, &room.form, [&](int at) { positions += at; });
    room.clock.advance(1250);
    EXPECT_EQ(positions, (QList<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 0, 1}));
    const qsizetype tests = room.station.port.writes().size();
    EXPECT_GT(tests, 5) << "the tests go on under it";
    const auto& tried = named<QProgressBar>(room.connectForm, "TriedProgressBar");
    EXPECT_EQ(tried.maximum(), 168);
    EXPECT_EQ(tried.value(), tests - 2);
    click(room.connectForm, "StopTransparentButton");
    EXPECT_FALSE(room.connectForm.isVisible() || room.connectForm.Timer1.Enabled());
    EXPECT_TRUE(named<QRadioButton>(room.form, "ManualRadioButton").isChecked());
    room.person.expectBox(room.lang.MsgStr(Message::ComTimeout), QStringLiteral("Warning"));
    room.testIsOver();
    EXPECT_EQ(room.station.port.writes().size(), tests);

    walk();
    room.form.close();
    EXPECT_FALSE(room.form.isVisible() || room.connectForm.isVisible() || room.connectForm.Timer1.Enabled());
    room.clock.advance(2000);
    EXPECT_EQ(room.station.port.writes().size(), tests + 2);
}

TEST(InputForm, EditsTheCommandOfTheTest) {
    Room room;
    TInputForm input(room.setup, &room.form);
    QObject::connect(&room.form, &TComSetupForm::inputFormWanted, &input, &QWidget::show);
    room.open();
    QTest::mouseDClick(&named<QLabel>(room.form, "Label3"), Qt::LeftButton);
    ASSERT_TRUE(input.isVisible());
    auto& edit = named<QLineEdit>(input, "InputEdit");
    EXPECT_EQ(edit.text(), QStringLiteral("FF0321010001"));
    edit.setText(QStringLiteral("010321000002"));
    QTest::keyClick(&input, Qt::Key_Escape);
    EXPECT_EQ(room.setup.TestCommand, QStringLiteral("FF0321010001"));
    input.show();
    edit.setText(QStringLiteral("010321000002"));
    click(input, "OKTransparentButton");
    EXPECT_FALSE(input.isVisible());
    click(room.form, "TestButton");
    EXPECT_EQ(room.station.port.transcript(), QStringList{QStringLiteral("010321000002")});
}

TEST(MessageForm, ThreeAnswersAndNoOtherWayOut) {
    TMessageForm form;
    QSignalSpy answers(&form, &TMessageForm::answered);
    const std::array<std::pair<const char*, LinkAnswer>, 3> rows{{{"RetryBitBtn", LinkAnswer::Retry},
                                                                  {"IgnoreBitBtn", LinkAnswer::Ignore},
                                                                  {"AbortBitBtn", LinkAnswer::Abort}}};
    for (const auto& [name, answer] : rows) {
        form.ask(QStringLiteral("Communication Timeout"), true);
        QTest::keyClick(&form, Qt::Key_Escape);
        form.close();
        ASSERT_TRUE(form.isVisible());
        EXPECT_TRUE(form.isModal());
        click(form, name);
        EXPECT_FALSE(form.isVisible());
        EXPECT_EQ(answers.takeLast().first().value<LinkAnswer>(), answer);
    }
    EXPECT_TRUE(answers.isEmpty());
    form.ask(QStringLiteral("Communication Timeout"), false);
    EXPECT_FALSE(named<QWidget>(form, "IgnoreBitBtn").isVisible());
    EXPECT_EQ(named<QLabel>(form, "ErrNameVrLabel").text(), QStringLiteral("Communication Timeout"));
}

TEST(CEmessageForm, StandsOverTheWindowInFrontAndFollowsTheLink) {
    Room room;
    TInitialForm wait(room.link, room.clock);
    TCEmessageForm notice(room.link);
    room.station.line.faults().setChance(drive::LineFault::Silent, 100);
    room.setup.ComPortComboBoxChange(QStringLiteral("3"));
    room.setup.copySettingsToLink();
    room.link.Initial();
    room.setup.awaitDrive();
    room.link.TxTimer.setEnabled(true);
    room.clock.advanceUntil([&] { return notice.isVisible(); }, 5000);
    EXPECT_FALSE(notice.isModal());
    EXPECT_EQ(notice.parentWidget(), &wait) << "else the wait notice would block it";
    // Closed by hand it comes back with the next silence.
    notice.close();
    EXPECT_FALSE(room.link.Notice.TCEmessageFormShown);
    room.clock.advanceUntil([&] { return notice.isVisible(); }, 10000);
    ASSERT_TRUE(notice.isVisible());

    room.station.line.faults().clear();
    room.clock.advanceUntil([&] { return !notice.isVisible(); }, 20000);
    EXPECT_EQ(notice.parentWidget(), nullptr);
    room.clock.advanceUntil([&] { return !wait.isVisible(); }, 60000);
    EXPECT_TRUE(room.link.Lamp.onLine());
}

// A line with foreign traffic can hold a wait for ever; nobody has to kill the program for it.
TEST(InitialForm, CanBeLeftAfterFiveSeconds) {
    Room room;
    TInitialForm wait(room.link, room.clock);
    QSignalSpy left(&wait, &TInitialForm::left);
    const auto begin = [&] {
        room.link.Notice.TInitialFormShown = true;
        room.link.notifyChanged();
        room.clock.advance(4900);
        EXPECT_FALSE(named<QWidget>(wait, "CloseTransparentButton").isVisible());
        room.clock.advance(200);
    };
    begin();
    EXPECT_TRUE(named<QLabel>(wait, "WaitsForLabel").isVisible());
    room.link.TxTimer.setEnabled(true);
    click(wait, "CloseTransparentButton");
    EXPECT_FALSE(wait.isVisible() || room.link.TxTimer.Enabled()) << "Initial has run";
    EXPECT_EQ(left.size(), 1);

    // Whoever waits for something else can be left at once.
    room.link.TxTimer.setEnabled(true);
    room.link.Notice.TInitialFormShown = room.link.Notice.waitMayBeLeft = true;
    room.link.notifyChanged();
    QTest::keyClick(&wait, Qt::Key_Escape);
    EXPECT_TRUE(!wait.isVisible() && room.link.TxTimer.Enabled());
}

TEST(PasswordForm, OneDoorForEachOwner) {
    Room room;
    TPasswordForm form(room.link, {room.person, room.lang});
    QSignalSpy language(&form, &TPasswordForm::languageEnabled);
    auto& edit = named<QLineEdit>(form, "PasswordEdit");
    EXPECT_EQ(edit.echoMode(), QLineEdit::Password);
    const auto enter = [&](const char* text) {
        form.show();
        QTest::keyClicks(&edit, QLatin1String(text));
        QTest::keyClick(&edit, Qt::Key_Return);
        EXPECT_TRUE(edit.text().isEmpty());
    };
    const QString wrong = QStringLiteral("Password incorrect. Try again?");
    room.person.expectBox(wrong, QStringLiteral("Cofirm"), BoxAnswer::Retry);
    enter("mirto");
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(room.person.lastButtons, BoxButtons::RetryCancel);
    room.link.ActiveFunction = OwnerParameter;
    room.person.expectBox(wrong, QStringLiteral("Cofirm"), BoxAnswer::Cancel);
    enter("quillbar");
    EXPECT_FALSE(form.isVisible());
    EXPECT_TRUE(language.isEmpty());
    form.show();
    edit.setText(QStringLiteral("half a word"));
    form.close();
    EXPECT_TRUE(edit.text().isEmpty());
}

TEST(AboutForm, CopiesWhatASupporterAsksFor) {
    TAboutForm form(0);
    click(form, "CopyButton");
    EXPECT_TRUE(QGuiApplication::clipboard()->text().startsWith(QStringLiteral("Orlan Kelvane 1.30\n")));
}

}  // namespace
}  // namespace kelvane

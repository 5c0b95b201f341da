// Auto tuning over practice drives: the order of a run on the wire, its good and bad ends, the two motors of
// Tilia, and what is left when the window is closed in the middle.
#include <gtest/gtest.h>

#include "commissioning_bench.h"

namespace kelvane {
namespace {

using drive::LineFault;

const QString StopFrame = QStringLiteral("FF0620000001");
const QString RunFrame = QStringLiteral("FF0620000002");
const QString State = QStringLiteral("FF0321190004");

// One state read in place of many in a row.
QStringList withoutRepeats(QStringList frames) {
    for (int i = int(frames.size()) - 1; i > 0; --i)
        if (frames[i] == State && frames[i - 1] == State) frames.removeAt(i);
    return frames;
}

struct TuneStand : CommissioningStand {
    AutoTuning tuning{{link, clock, person, lang}};

    explicit TuneStand(Family family, drive::LineMode mode = drive::LineMode::Ascii)
        : CommissioningStand(family, mode) {
        station.drive.options().tuneSeconds = 2;
    }
    void open() {
        begin(OwnerAutoTuning);
        tuning.opened();
        ASSERT_TRUE(idle(tuning.line));
        frames();
    }
    void close() { CommissioningStand::close(tuning); }
    void tune(int entry) {
        tuning.TuneParaComboBoxChange(entry);
        tuning.TuneTransparentButtonClick();
    }
    bool runs() const { return tuning.sequence.running(); }
    void untilEnd() {
        clock.advanceUntil([&] { return !runs(); }, 600000);
        idle(tuning.line);
    }
    const TuneFamily& family() const { return *tuneFamily(link.DriveStatus.DriveFamily); }
    // The reads of a whole table, the command register behind it included.
    QStringList tableReads(int motor = 0) const {
        QStringList reads;
        for (const ListedParameter& row : family().motors[size_t(motor)])
            if (QLatin1String(row.modbus) != QLatin1String("null"))
                reads += "FF03" + QString(row.modbus) + "000F";
        if (*family().commandRegister) reads += "FF03" + QString(family().commandRegister) + "000F";
        return reads;
    }
    QStringList shape() { return withoutRepeats(frames()); }
};

class TuneFamilyTest : public testing::TestWithParam<Family> {};
INSTANTIATE_TEST_SUITE_P(Families, TuneFamilyTest,
                         testing::Values(Family::Rowan, Family::Larch, Family::Tilia, Family::Willow),
                         [](const auto& drive) { return std::string(familyName(drive.param)); });

// A run, then a write of every row, each read back.
TEST_P(TuneFamilyTest, RunsAndWritesInOrder) {
    for (const drive::LineMode mode : {drive::LineMode::Ascii, drive::LineMode::Rtu}) {
        TuneStand b(GetParam(), mode);
        b.open();
        const int entry = b.family().turningEntry;
        const QString modeWrite =
            "FF06" + QString(b.family().commandRegister) + QString::asprintf("%04X", entry);
        b.tune(entry);
        EXPECT_EQ(b.person.asked.takeFirst(),
                  "Caution: Motor will run after press OK !!\nAre you ready to AutoTuning ?");
        EXPECT_FALSE(b.tuning.enabled.buttons || b.tuning.enabled.TuneTransparentButtonEnabled ||
                     b.tuning.enabled.entry);
        int fastest = 0;
        QObject::connect(&b.tuning, &AutoTuning::speedRead,
                         [&](int digit) { fastest = std::max(fastest, digit); });
        b.untilEnd();
        EXPECT_EQ(b.person.asked, QStringList("Confirm: Auto Tuning Finish !!"));
        const QStringList run{StopFrame, State, modeWrite,
                              RunFrame,  State, QLatin1String(b.family().resultCommand)};
        EXPECT_EQ(b.shape(), run + b.tableReads());
        EXPECT_GT(fastest, 0);
        EXPECT_EQ(b.value(QString(b.family().commandRegister).toInt(nullptr, 16)), 0);
        EXPECT_EQ(b.tuning.enabled,
                  (AutoTuning::Enabled{.buttons = true, .TuneTransparentButtonEnabled = false}));
        QStringList writes;
        for (const QString& read : b.tableReads())
            if (read.mid(4, 4) != QLatin1String(b.family().commandRegister))
                writes += QStringLiteral("FF06%1%2")
                              .arg(read.mid(4, 4))
                              .arg(b.value(read.mid(4, 4).toInt(nullptr, 16)), 4, 16, QLatin1Char('0'))
                              .toUpper();
        b.tuning.WriteTransparentButtonClick();
        EXPECT_FALSE(b.tuning.enabled.buttons);
        b.idle(b.tuning.line);
        EXPECT_EQ(b.frames(), writes + b.tableReads());
        b.close();
    }
}

// A code in another place of another word, its text from another register, and another way to reset, by
// family.
TEST_P(TuneFamilyTest, ReportsABadResultAndResetsOnRequest) {
    for (const BoxAnswer answer : {BoxAnswer::Yes, BoxAnswer::No}) {
        TuneStand b(GetParam());
        b.open();
        b.station.drive.options().tuneResult = drive::TuneFault;
        b.person.onBox = [=](const QString& title) { return title == "Caution" ? answer : BoxAnswer::Ok; };
        const int entry = GetParam() == Family::Tilia ? 2 : 1;  // the shaft stands, so nothing is asked first
        b.tune(entry);
        b.untilEnd();
        ASSERT_EQ(b.person.asked.size(), 1);
        EXPECT_EQ(b.person.asked.front(),
                  "Caution: Auto tune failedAUE , \nWould you want to reset the drive?");
        const QStringList sent = b.shape();
        const auto at = sent.indexOf(QLatin1String(b.family().resultCommand));
        EXPECT_EQ(sent.value(at + 1), "FF03" + QString(b.family().textRegister) + "28000A");
        EXPECT_EQ(sent.value(at + 2),
                  answer == BoxAnswer::Yes ? QString(b.family().resetCommand) : b.tableReads()[0]);
        EXPECT_EQ(sent.mid(sent.size() - b.tableReads().size()), b.tableReads());
    }
}

// Rowan: the drive runs at the start and has to be waited for.
TEST(AutoTuning, StopsARunningDriveFirst) {
    TuneStand b(Family::Rowan);
    b.open();
    b.station.drive.motor().setCommandHz(20);
    b.station.drive.motor().run();
    b.clock.advance(3000);
    b.tune(1);
    EXPECT_TRUE(b.person.asked.isEmpty());
    b.untilEnd();
    const QStringList sent = b.frames();
    EXPECT_GT(sent.indexOf("FF0600670001"), 4) << "the drive runs down";
    EXPECT_EQ(withoutRepeats(sent).mid(0, 5),
              QStringList({StopFrame, State, "FF0600670001", RunFrame, State}));
}

TEST(AutoTuning, LeavesTheRowWithoutAParameterAlone) {
    TuneStand b(Family::Willow);
    b.open();
    EXPECT_EQ(b.tuning.rows.text(ParameterRows::PrNo, 4), "-----");
    EXPECT_EQ(b.tuning.rows.text(ParameterRows::Data, 4), QString());
    QStringList edited;
    b.person.onEdit = [&](ValueEdit& edit) { edited += edit.PrInforVrLabel.left(7); };
    for (const int row : {4, 0, 1}) b.tuning.ParaAdvStringGridDblClickCell(row);
    EXPECT_EQ(edited, QStringList("01-01: "));
}

// Kept: without a command register the mode goes out as function and value alone; the drive refuses it, one
// poll follows, and the run stands before RUN.
TEST(AutoTuning, KeepsSendingTheModeOfSorrelWithoutARegister) {
    TuneStand b(Family::Sorrel);
    b.open();
    EXPECT_EQ(b.tuning.rows.text(ParameterRows::PrNo, 11), "05-09");
    b.tune(1);
    b.clock.advance(20000);
    EXPECT_EQ(b.frames(), QStringList({StopFrame, State, "FF060001", "FF0321000010"}));
    EXPECT_EQ(b.tuning.line.standing, CommissioningLink::Standing::Refused);
    EXPECT_EQ(b.tuning.sequence.TuneStep, 3);
    EXPECT_FALSE(b.station.drive.motor().running());
}

TEST(AutoTuning, ReadsTheTableOfTheSelectedMotor) {
    TuneStand b(Family::Tilia);
    b.begin(OwnerAutoTuning);
    b.tuning.opened();
    b.idle(b.tuning.line);
    QStringList sent = b.frames();
    while (!sent.isEmpty() && sent.front() == "FF0321000010") sent.removeFirst();
    EXPECT_EQ(sent, QStringList("FF03050A000F") + b.tableReads());
    const auto untilRead = [&] { b.clock.advanceUntil([&] { return !b.tuning.RdTimer.running(); }, 60000); };
    b.tuning.motorSelFormClosed(2);
    b.clock.advance(100);
    untilRead();
    EXPECT_EQ(b.frames(), QStringList({"FF06050A0002", "FF03050A000F"}) + b.tableReads(1));
    EXPECT_EQ(b.tuning.rows.text(ParameterRows::PrNo, 1), "01-35");
    EXPECT_FALSE(b.tuning.firstMotor());
    // Kept: left without OK the old value is sent again.
    b.tuning.motorSelFormClosed({});
    b.clock.advance(100);
    untilRead();
    EXPECT_EQ(b.frames().value(0), "FF06050A0002");
    // A motor that is refused: the table is that of the motor which the drive has.
    b.faults().failNext(LineFault::Exception);
    b.tuning.motorSelFormClosed(1);
    b.clock.advance(500);
    untilRead();
    EXPECT_EQ(b.frames().filter("FF03").mid(0, 3),
              QStringList({"FF0321000010", "FF03050A000F", "FF030123000F"}));
    EXPECT_FALSE(b.tuning.firstMotor());
}

// Golden transcripts of a run whose k-th step is refused, and of one whose k-th step is never answered: the
// run stands there. Behind a refusal comes one poll, behind a time-out nothing after four resends; the way
// out is to close.
TEST_P(TuneFamilyTest, StandsAtTheStepThatFailed) {
    const TuneFamily& family = *tuneFamily(quint8(GetParam()));
    const int entry = GetParam() == Family::Tilia ? 2 : 1;
    const QString poll = GetParam() == Family::Willow ? "FF032100000B" : "FF0321000010";
    const QStringList run{StopFrame,
                          State,
                          "FF06" + QString(family.commandRegister) + QString::asprintf("%04X", entry),
                          RunFrame,
                          State,
                          family.resultCommand,
                          "FF03" + QString(family.textRegister) + "28000A",
                          family.resetCommand};
    for (int step = 1; step <= run.size(); ++step)
        for (const bool refused : {true, false}) {
            SCOPED_TRACE(testing::Message() << step << (refused ? " refused" : " silent"));
            TuneStand b(GetParam());
            b.open();
            b.station.drive.options().tuneSeconds = 0.01;
            b.station.drive.setNextTuneResult(drive::TuneFault);
            b.person.onLinkFailure = [] { return LinkAnswer::Ignore; };
            for (int k = 0; k < (refused ? 1 : 5); ++k)
                b.faults().failAt(step + k, refused ? LineFault::Exception : LineFault::Silent);
            b.tune(entry);
            b.clock.advanceUntil([&] { return b.tuning.line.standing != CommissioningLink::Standing::No; },
                                 120000);
            b.clock.advance(20000);
            QStringList wanted = run.mid(0, step);
            wanted += refused ? QStringList(poll) : QStringList(4, run[step - 1]);
            EXPECT_EQ(b.frames(), wanted);
            EXPECT_EQ(b.tuning.line.standing,
                      refused ? CommissioningLink::Standing::Refused : CommissioningLink::Standing::Lost);
            EXPECT_TRUE(b.runs());
            EXPECT_FALSE(b.tuning.enabled.buttons);
            b.close();
            EXPECT_FALSE(b.runs());
            EXPECT_TRUE(b.tuning.enabled.buttons);
            if (refused) {
                EXPECT_TRUE(b.awaitPolls(1));
            }
        }
}

// Wherever in a run it is pressed: STOP is the next frame, and no RUN follows it.
TEST_P(TuneFamilyTest, StopsTheDriveAndEndsTheRun) {
    for (int ms = 1; ms < 1500; ms += ms < 300 ? 5 : 50) {
        TuneStand b(GetParam());
        b.open();
        b.tune(b.family().turningEntry);
        b.clock.advance(ms);
        const bool modeLeft = b.tuning.sequence.modeIsSet();
        b.frames();
        b.tuning.stopDrive();
        EXPECT_EQ(b.tuning.stopped, modeLeft ? AutoTuning::Stopped::BeforeRun : AutoTuning::Stopped::Run);
        EXPECT_TRUE(b.tuning.enabled.buttons && b.tuning.enabled.entry && b.tuning.mayClose());
        b.untilEnd();
        EXPECT_EQ(b.shape(), QStringList({StopFrame, State}) + b.tableReads()) << ms;
        EXPECT_FALSE(b.station.drive.motor().running()) << ms;
    }
}

// On Larch and Tilia the whole word is the code.
TEST(AutoTuning, TakesNoCodeInTheHighByteForAGoodEnd) {
    TuneStand b(Family::Larch);
    b.open();
    QObject::connect(&b.link, &RequestScheduler::answered, [&](quint8, const QString& command) {
        if (command == QLatin1String(b.family().resultCommand)) b.link.ParamRead.ReadWords[0] = 0x0100;
    });
    b.tune(1);
    b.untilEnd();
    EXPECT_EQ(b.frames().filter("FF0333"), QStringList("FF033300000A"));
    EXPECT_TRUE(b.person.asked.front().endsWith(", \nWould you want to reset the drive?"));
}

// Before the drive has said which motor it has, no motor is written.
TEST(AutoTuning, WritesNoMotorThatNobodyChose) {
    TuneStand b(Family::Tilia);
    b.begin(OwnerAutoTuning);
    b.clock.advanceUntil([&] { return b.link.idle(); }, 2000);
    b.faults().failNext(LineFault::Exception);
    b.tuning.opened();
    b.clock.advance(2000);
    EXPECT_FALSE(b.tuning.motorKnown());
    b.link.Notice.TInitialFormShown = false;
    b.link.notifyChanged();
    b.frames();
    b.tuning.motorSelFormClosed({});
    b.idle(b.tuning.line);
    b.clock.advance(5000);
    EXPECT_EQ(b.frames(), QStringList("FF03050A000F") + b.tableReads());
    EXPECT_TRUE(b.tuning.firstMotor());
}

// No time limit; closing in the middle asks, sends nothing, and says so in the history.
TEST(AutoTuning, LeavesARunAloneWhenItsWindowCloses) {
    TuneStand b(Family::Tilia);
    b.station.drive.options().tuneSeconds = 1200;
    b.open();
    EXPECT_TRUE(b.tuning.mayClose());
    b.tune(1);
    b.clock.advance(600000);
    EXPECT_EQ(b.tuning.sequence.TuneStep, 1);
    EXPECT_EQ(b.person.asked.size(), 1);
    b.person.onBox = [](const QString&) { return BoxAnswer::No; };
    EXPECT_FALSE(b.tuning.mayClose());
    b.frames();
    b.close();
    EXPECT_TRUE(b.awaitPolls(5));
    EXPECT_EQ(b.frames().filter("FF06"), QStringList());
    EXPECT_FALSE(b.history.filter("goes on by itself").isEmpty());
}

TEST(AutoTuning, AsksBeforeTheMotorTurnsAndTakesNo) {
    TuneStand b(Family::Larch);
    b.open();
    b.person.onBox = [](const QString&) { return BoxAnswer::Cancel; };
    b.tune(0);
    EXPECT_FALSE(b.tuning.enabled.TuneTransparentButtonEnabled);
    b.tune(2);
    EXPECT_EQ(b.person.asked.size(), 1);
    EXPECT_EQ(b.tuning.enabled, (AutoTuning::Enabled{.TuneTransparentButtonEnabled = true}));
    b.clock.advance(1000);
    EXPECT_EQ(b.frames(), QStringList());
}

}  // namespace
}  // namespace kelvane

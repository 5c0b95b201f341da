// Reading and writing the slots over the line of a practice drive: what goes out, and what becomes of the
// values and of the person when replies are lost, broken, late, doubled or refused.

#include "quicksetup/quick_setup_flow.h"

#include <gmock/gmock.h>

#include <QRegularExpression>

#include "bench/hostile_line.h"
#include "bench/on_line_bench.h"

namespace kelvane {

namespace {

using drive::LineFault;
using drive::LineMode;

// In the order of the slots, as they go over the line.
QStringList registersOf(Family family) {
    QStringList registers;
    for (int slot = 1; slot <= SlotCount; ++slot) registers += slotAddress(slot, family);
    registers.removeAll(QString());
    return registers;
}

struct FlowBench : OnLineBench {
    QuickSetup quick{link, {person, lang}};
    QuickSetupFlow flow{quick, link, clock, {person, lang}};
    int wizards = 0;
    int givenUp = 0;

    explicit FlowBench(const LineChoice& choice) : OnLineBench(choice) {
        credits.compareState = false;
        QObject::connect(&identification, &DriveIdentification::familyKnown, &quick, &QuickSetup::Initial);
        QObject::connect(&flow, &QuickSetupFlow::wizardWanted, [this] { ++wizards; });
        QObject::connect(&flow, &QuickSetupFlow::wizardDone, [this] { closeWizard(); });
        QObject::connect(&flow, &QuickSetupFlow::openingGivenUp, [this] {
            ++givenUp;
            link.tail();
        });
        EXPECT_TRUE(goOnLine());
    }
    explicit FlowBench(Family family, LineMode mode = LineMode::Ascii)
        : FlowBench(LineChoice{.family = family, .mode = mode, .Baud = 38400}) {}
    void begin(SettingsSource source = SettingsSource::Drive) {
        link.prelude();
        link.ParamRead.ReadDone = 1;
        link.ActiveFunction = OwnerQuickSetup;
        station.port.clearTranscript();
        flow.opened();
        flow.chooseSource(source);
    }
    bool waitsEnd(qint64 maxMs = 900000) {
        return clock.advanceUntil([this] { return !link.Notice.TInitialFormShown; }, maxMs);
    }
    void read() {
        begin();
        EXPECT_TRUE(waitsEnd());
    }
    void write() {
        station.port.clearTranscript();
        flow.OkBitBtnClick();
        EXPECT_TRUE(waitsEnd());
    }
    void closeWizard() {
        flow.closed();
        link.tail();
    }
    QSlot& slot(int number) { return quick.Slot[static_cast<size_t>(number)]; }
    quint16 held(int number) {
        return station.drive.word(uint16_t(slot(number).SlotAddress.toInt(nullptr, 16))).value();
    }
    // The frames of Quick Setup alone.
    QStringList requests() const { return transcript().filter(QRegularExpression("^(?!FF0321)")); }
    QStringList wrongSlots() {
        QStringList wrong = credits.miscredited;
        for (int number = 1; number < SlotCount; ++number)
            if (quick.used(number) && (quint16(slot(number).SlotValue) != held(number) || !slot(number).held))
                wrong += QStringLiteral("slot %1: %2, drive %3")
                             .arg(number)
                             .arg(slot(number).SlotValue)
                             .arg(held(number));
        return wrong;
    }
    // Every slot gets another value that the drive takes.
    void changeAll() {
        for (int number = 1; number <= SlotCount; ++number) {
            QSlot& q = slot(number);
            if (!quick.used(number)) continue;
            if (quickSlot(number).control == SlotControl::List) {
                quick.chooseItem(number, (q.SlotValue + 1) % quick.itemCount(number));
                continue;
            }
            const int value = q.SlotValue < q.SlotMax ? q.SlotValue + 1 : q.SlotValue - 1;
            quick.typeText(number,
                           InsertDecimalPoint(QString::number(value), number == 7 ? 0 : q.SlotDecimals));
            EXPECT_TRUE(quick.leaveEdit(number)) << number;
        }
    }
};

class EveryFamily : public testing::TestWithParam<Family> {};
INSTANTIATE_TEST_SUITE_P(QuickSetup, EveryFamily, testing::ValuesIn(AllFamilies),
                         [](const auto& tested) { return std::string(familyName(tested.param)); });

TEST_P(EveryFamily, ReadsAndWritesInTheOrderOfTheSlots) {
    for (const LineMode mode : {LineMode::Ascii, LineMode::Rtu}) {
        FlowBench b(GetParam(), mode);
        b.read();
        b.clock.advance(200);
        EXPECT_EQ(b.wizards, 1);
        EXPECT_EQ(b.flow.state(), WizardState::Editing);
        QStringList reads;
        for (const QString& address : registersOf(GetParam())) {
            const bool oneWord = GetParam() == Family::Osier && reads.size() >= 19;
            reads += QStringLiteral("FF03") + address + (oneWord ? "0001" : "0004");
        }
        EXPECT_EQ(b.transcript(), reads) << "and no poll between them";
        EXPECT_EQ(b.wrongSlots(), QStringList());
        b.changeAll();
        b.person.asked.clear();
        b.write();
        EXPECT_EQ(b.person.asked, QStringList{"Cofirm: Do you want write these settings to drive ?"});
        EXPECT_EQ(b.flow.state(), WizardState::Closed);
        b.awaitPolls(2);
        QStringList writes;
        for (int number = 1; number <= SlotCount; ++number)
            if (b.quick.used(number)) writes += b.slot(number).SlotWriteCommand;
        EXPECT_EQ(b.requests(), writes);
        EXPECT_EQ(b.wrongSlots(), QStringList());
        EXPECT_EQ(b.history.filter("CE ") + b.history.filter("Quick Setup"), QStringList());
    }
}

TEST_P(EveryFamily, SurvivesALineThatFails) {
    for (const LineMode mode : {LineMode::Ascii, LineMode::Rtu}) {
        FlowBench b(GetParam(), mode);
        for (uint32_t seed = 1; seed <= (everyCase() ? 200u : 5u); ++seed) {
            b.faults().setSeed(seed);
            for (const LineFault fault : {LineFault::Silent, LineFault::BadCheck, LineFault::Late,
                                          LineFault::Doubled, LineFault::CutShort, LineFault::InPieces})
                b.faults().setChance(fault, 2);
            b.read();
            EXPECT_EQ(b.wrongSlots(), QStringList()) << seed;
            b.changeAll();
            b.write();
            EXPECT_TRUE(b.awaitPolls(1)) << "the poll does not come back";
            b.faults().clear();
            EXPECT_TRUE(b.awaitPolls(3));
            EXPECT_EQ(b.wrongSlots(), QStringList()) << seed;
            const QStringList registers = registersOf(GetParam());
            for (const QString& frame : b.requests())
                EXPECT_TRUE(registers.contains(frame.mid(4, 4))) << frame.toStdString();
        }
        EXPECT_EQ(b.history.filter("Quick Setup"), QStringList()) << "everything was written";
    }
}

TEST(QuickSetupFlow, ASlotThatIsNotAnsweredTakesTheWordsBeforeItAndSaysSo) {
    for (const auto& [fault, times] :
         {std::pair{LineFault::Exception, 1}, {LineFault::Echo, 1}, {LineFault::Silent, 5}}) {
        FlowBench b(Family::Larch);
        b.person.onLinkFailure = [] { return LinkAnswer::Ignore; };
        for (int k = 0; k < times; ++k) b.faults().failAt(9 + k, fault);
        b.read();
        EXPECT_EQ(b.wizards, 1) << "the sweep goes on";
        EXPECT_EQ(b.slot(9).SlotValue, b.slot(8).SlotValue);
        EXPECT_FALSE(b.quick.doubtOf(9).isEmpty());
        EXPECT_TRUE(b.quick.doubtOf(8).isEmpty());
        EXPECT_EQ(b.slot(10).SlotValue, b.held(10)) << "and the next slot has its own again";
        EXPECT_EQ(b.transcript().count("FF0301010004"), times);
        EXPECT_EQ(b.flow.changes().size(), 1u);
    }
}

TEST(QuickSetupFlow, AbortWhileReadingOpensNoWizardAndSendsNothingMore) {
    FlowBench b(Family::Larch, LineMode::Rtu);
    b.person.onLinkFailure = [] { return LinkAnswer::Abort; };
    for (int k = 0; k < 5; ++k) b.faults().failAt(4 + k, LineFault::Silent);
    b.read();
    EXPECT_EQ(b.givenUp, 1);
    EXPECT_EQ(b.wizards, 0);
    EXPECT_FALSE(b.link.Lamp.onLine());
    const qsizetype sent = b.sent();
    b.clock.advance(60000);
    EXPECT_EQ(b.sent(), sent);
}

TEST(QuickSetupFlow, ARefusedSettingIsSaidAndStopsNothing) {
    FlowBench b(Family::Larch);
    b.read();
    b.clock.advance(200);
    b.changeAll();
    const quint16 before = b.held(9);
    b.faults().failAt(9, LineFault::Exception);
    b.write();
    b.awaitPolls(1);
    EXPECT_EQ(b.requests().filter("FF0333").size(), 1) << "the text of the refusal";
    EXPECT_EQ(b.requests().size(), 32);
    EXPECT_EQ(b.history.filter("CE 4").size(), 1);
    EXPECT_EQ(b.history.last(), "Quick Setup: 1 of 31 settings were not written: 01-01 (refused)");
    EXPECT_EQ(b.held(9), before);
    EXPECT_TRUE(b.quick.changed(9));
    EXPECT_FALSE(b.quick.changed(10));
}

TEST(QuickSetupFlow, AbortWhileWritingSaysWhatTheDriveDoesNotHold) {
    FlowBench b(Family::Rowan);
    b.read();
    b.changeAll();
    b.person.onLinkFailure = [] { return LinkAnswer::Abort; };
    for (int k = 0; k < 5; ++k) b.faults().failAt(24 + k, LineFault::Silent);
    b.write();
    EXPECT_EQ(b.flow.state(), WizardState::Closed);
    EXPECT_EQ(b.history.filter("Quick Setup").last(),
              "Quick Setup: 2 of 25 settings were not written: Pr.41 (no answer), Pr.42 (not sent)");
}

TEST(QuickSetupFlow, EveryWaitCanBeLeft) {
    FlowBench b(Family::Larch);
    b.faults().failNext(LineFault::Silent, 100);
    b.begin();
    b.clock.advance(3000);
    b.flow.leaveWait();
    EXPECT_FALSE(b.link.Notice.TInitialFormShown);
    EXPECT_EQ(b.givenUp, 1);
    b.faults().clear();
    EXPECT_TRUE(b.awaitPolls(2)) << "the main window has the line again";
    b.read();
    EXPECT_EQ(b.wrongSlots(), QStringList());
    b.changeAll();
    b.flow.OkBitBtnClick();
    EXPECT_TRUE(b.clock.advanceUntil([&] { return b.requests().filter("FF06").size() == 5; }, 10000));
    b.person.asked.clear();
    b.flow.leaveWait();
    EXPECT_EQ(b.flow.state(), WizardState::Closed);
    ASSERT_EQ(b.person.asked.size(), 1);
    EXPECT_TRUE(b.person.asked[0].contains("settings were not written: ")) << b.person.asked[0].toStdString();
    EXPECT_TRUE(b.awaitPolls(2));
    EXPECT_EQ(b.credits.miscredited, QStringList());
    EXPECT_EQ(b.requests().filter("FF06").size(), 5) << "nothing goes out behind the person's back";
}

TEST(QuickSetupFlow, KeepsTheLastSlotAsItWasBefore) {
    FlowBench b(Family::Sorrel);
    EXPECT_EQ(b.held(40), 19);
    b.read();
    EXPECT_EQ(b.slot(40).SlotValue, 0);
    EXPECT_EQ(b.slot(40).ItemIndex, 0);
    EXPECT_FALSE(b.quick.doubtOf(40).isEmpty());
    b.write();
    b.awaitPolls(1);
    EXPECT_EQ(b.requests().filter("FF060208").size(), 1) << "once, and before the poll";
    EXPECT_EQ(b.held(40), 0);
}

TEST(QuickSetupFlow, TheWizardMayCloseWhileTheLastReadIsOut) {
    for (const LineMode mode : {LineMode::Ascii, LineMode::Rtu})
        for (int wait = 0; wait < 40; wait += 3) {
            FlowBench b(Family::Osier, mode);
            b.read();
            b.clock.advance(wait);
            b.closeWizard();
            EXPECT_TRUE(b.awaitPolls(2));
            EXPECT_EQ(b.requests().filter("FF0304070001").size(), 1) << wait;
            b.read();
            b.write();  // which waits for that read
            EXPECT_TRUE(b.awaitPolls(2));
            EXPECT_EQ(b.requests().filter("FF06").size(), 35);
            EXPECT_EQ(b.credits.miscredited, QStringList());
            EXPECT_EQ(b.history.filter("Quick Setup"), QStringList());
        }
}

TEST_P(EveryFamily, WritesAProjectOfOneDriveToAnother) {
    std::array<QString, SlotCount + 1> saved;
    FlowBench first(GetParam());
    first.read();
    first.changeAll();
    first.write();
    first.awaitPolls(1);
    for (int number = 1; number <= SlotCount; ++number)
        saved[size_t(number)] = first.quick.controlText(number);
    FlowBench second(GetParam());
    second.quick.takeProject(saved);
    second.begin(SettingsSource::Project);
    second.clock.advance(500);
    EXPECT_EQ(second.transcript(), QStringList()) << "no frame before OK";
    EXPECT_EQ(second.wizards, 1);
    second.write();
    second.awaitPolls(1);
    for (int number = 1; number <= SlotCount; ++number)
        if (second.quick.used(number)) {
            EXPECT_EQ(second.held(number), first.held(number)) << number;
        }
}

TEST(QuickSetupFlow, AProjectThatWasNotOpenedIsToldAndALinkAtRestWritesNothing) {
    FlowBench b(Family::Larch);
    b.person.asked.clear();
    b.begin(SettingsSource::Project);
    EXPECT_EQ(b.person.asked, QStringList{"Warning Message: Parameter value Not correct !!"});
    EXPECT_EQ(b.wizards, 1);
    EXPECT_EQ(b.flow.changes().size(), 31u) << "nothing is known, and that is said";
    b.link.Initial();
    b.person.asked.clear();
    b.flow.OkBitBtnClick();
    EXPECT_EQ(b.person.asked, QStringList{"Warning Message: Please On - Line first !!"});
    EXPECT_EQ(b.flow.state(), WizardState::Editing);
    EXPECT_EQ(b.transcript(), QStringList());
}

}  // namespace

}  // namespace kelvane

// The keypad on a polling line with a practice drive: what leaves it when nobody acts, STOP in a line that
// fails, and that it holds nothing back however long it runs.
#include <gtest/gtest.h>
#include <malloc.h>

#include <random>

#include "bench/hostile_line.h"
#include "bench/on_line_bench.h"
#include "diagnostics/keypad/keypad.h"

namespace kelvane {
namespace {

using drive::LineFault;
using drive::LineMode;

LineChoice lineOf(Family family, LineMode mode, int Baud = 38400) {
    return {.family = family, .mode = mode, .Baud = Baud, .flow = drive::ByteFlow::Fifo};
}

struct KeypadLine : OnLineBench {
    Keypad keypad{link, clock, person, lang};
    std::mt19937 random;

    explicit KeypadLine(const LineChoice& choice, unsigned seed = 1) : OnLineBench(choice), random(seed) {
        credits.compareState = false;
        goOnLine();
        clock.advance(300);
    }
    int chance(int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); }
    drive::MotorModel& motor() { return station.drive.motor(); }
    QStringList sentSince(qsizetype from) const { return transcript().mid(from); }

    // The line, the drive and its person at the panel do what they like for a while.
    void disturb() {
        switch (chance(8)) {
            case 0: motor().injectFault(static_cast<uint8_t>(1 + chance(40))); break;
            case 1: motor().reset(); break;
            case 2:
                motor().setCommandHz(chance(6000) / 100.0);
                chance(2) ? motor().run() : motor().stop();
                break;
            case 3: motor().toggleDirection(); break;
            case 4: station.drive.options().externalFrequency = chance(2); break;
            case 5: station.drive.options().tellsTexts = chance(4) > 0; break;
            default: {
                constexpr LineFault kinds[] = {
                    LineFault::Silent, LineFault::BadCheck,  LineFault::CutShort, LineFault::Late,
                    LineFault::Noise,  LineFault::Exception, LineFault::Doubled,  LineFault::WrongFunction};
                faults().failNext(kinds[chance(8)], 1 + chance(2));
                break;
            }
        }
    }
    // Looks at pages only, as nobody does who touches nothing; keeps the keypad in every state.
    void look() {
        if (chance(3) == 0) keypad.ModeTransparentButtonClick();
        if (chance(9) == 0) keypad.PROGTransparentButtonClick();
    }
};

constexpr int Sequences = 10000;  // over nine families and two modes

class NobodyActs : public testing::TestWithParam<Family> {};

TEST_P(NobodyActs, NothingLeavesThatMovesOrWrites) {
    int frames = 0;
    for (const LineMode mode : {LineMode::Ascii, LineMode::Rtu}) {
        KeypadLine line(lineOf(GetParam(), mode), static_cast<unsigned>(GetParam()));
        qsizetype read = line.sent();
        for (int i = 0; i < Sequences / 18; ++i) {
            for (int step = 0; step < 6; ++step) {
                if (line.chance(3) == 0) line.disturb();
                line.look();
                line.clock.advance(20 + line.chance(300));
            }
            for (const QString& frame : line.sentSince(read)) {
                ASSERT_FALSE(frame.startsWith("FF06")) << frame.toStdString() << " in sequence " << i;
                ++frames;
            }
            line.station.port.clearTranscript();
            read = 0;
        }
        EXPECT_LT(line.link.TaskQueue.size(), 20U);
    }
    RecordProperty("frames", frames);
    EXPECT_GT(frames, Sequences / 4);
}

INSTANTIATE_TEST_SUITE_P(Families, NobodyActs, testing::ValuesIn(AllFamilies),
                         [](const auto& tested) { return std::string(familyName(tested.param)); });

// What a person may have queued when STOP is pressed.
void keepBusy(KeypadLine& line) {
    switch (line.chance(7)) {
        case 0: line.keypad.FreqScrollBarScroll(line.chance(6000)); break;
        case 1: line.keypad.RUNTransparentButtonClick(); break;
        case 2: line.keypad.DIRTransparentButtonClick(); break;
        case 3: line.keypad.SelPrComboBoxChange(line.chance(20)); break;
        case 4: line.motor().injectFault(5); break;
        case 5: line.keypad.JOGTransparentButtonMouseDown(); break;
        default: break;
    }
}

// A frame that is sent again because its own reply failed is the same exchange.
TEST(KeypadStop, IsAmongTheNextTwoFramesAndLeavesOnce) {
    for (const LineMode mode : {LineMode::Ascii, LineMode::Rtu}) {
        KeypadLine line(lineOf(Family::Larch, mode), mode == LineMode::Rtu ? 7u : 8u);
        for (int i = 0; i < (everyCase() ? 5000 : 300); ++i) {
            line.motor().reset();
            line.keypad.JOGTransparentButtonMouseUp();
            ASSERT_TRUE(line.clock.advanceUntil(
                [&, until = line.polls + 2] { return line.polls >= until && line.keypad.mayCommand(); },
                120000));
            constexpr LineFault kinds[] = {LineFault::Silent, LineFault::BadCheck, LineFault::CutShort,
                                           LineFault::Late, LineFault::Doubled};
            line.station.line.options().lateUs = (100 + line.chance(2000)) * 1000;
            keepBusy(line);
            if (line.chance(4)) line.faults().failNext(kinds[line.chance(5)], 1 + line.chance(3));
            line.clock.advance(line.chance(2500));
            if (line.chance(2)) keepBusy(line);

            int handled = 0;
            const auto counting = QObject::connect(&line.link, &RequestScheduler::answered,
                                                   [&](quint8 task) { handled += task == StopTask; });
            const QString stop = line.link.DriveStatus.FaultCode ? "FF0620020002" : "FF0620000001";
            const qsizetype from = line.sent();
            line.keypad.STOPTransparentButtonClick();
            ASSERT_TRUE(line.clock.advanceUntil([&] { return handled > 0; }, 120000)) << i;
            QStringList frames = line.sentSince(from);
            const qsizetype at = frames.indexOf(stop);
            ASSERT_TRUE(at == 0 || at == 1) << i << ": " << frames.join(' ').toStdString();
            // Without anything in between, it may be sent again until it is answered; and then no more.
            while (frames.size() > at + 1 && frames[at + 1] == stop) frames.removeAt(at + 1);
            line.awaitPolls(2);
            EXPECT_EQ(handled, 1) << i;
            QObject::disconnect(counting);
            frames = line.sentSince(from);
            const qsizetype last = frames.lastIndexOf(stop);
            for (qsizetype k = at; k <= last; ++k)
                ASSERT_EQ(frames[k], stop) << i << ": " << frames.join(' ').toStdString();
            line.station.port.clearTranscript();
        }
    }
}

// The poll must have its turn: by it alone the end of a fault is seen.
TEST(KeypadFaultText, StarvesNoPollWhenTheDriveHasNoTexts) {
    LineChoice choice = lineOf(Family::Larch, LineMode::Rtu);
    choice.drive.tellsTexts = false;
    KeypadLine line(choice);
    line.motor().injectFault(5);
    const int before = line.polls;
    line.clock.advance(10000);
    EXPECT_GT(line.polls, before + 30);
    EXPECT_LT(line.link.TaskQueue.size(), 8U);
    EXPECT_GT(line.transcript().count("FF033205000A"), 20);
    line.motor().reset();
    line.awaitPolls(2);
    EXPECT_EQ(line.link.DriveStatus.FaultCode, 0);
    line.clock.advance(500);
    EXPECT_EQ(line.keypad.screen.sheet, KeypadSheet::Main);
}

// One question, one answer, one line of history, on every family that tells texts.
TEST(KeypadFaultText, IsReadOnceAndLogged) {
    for (const Family family : AllFamilies) {
        KeypadLine line(lineOf(family, LineMode::Ascii, 9600));
        line.motor().injectFault(5);
        const qsizetype from = line.sent();
        line.clock.advance(3000);
        const qsizetype asked = line.sentSince(from).count("FF033205000A");
        const QString name = line.keypad.screen.ErrNameVrLabel;
        EXPECT_EQ(line.keypad.screen.sheet, KeypadSheet::ErrInfo);
        EXPECT_EQ(line.keypad.screen.ErrDescriptLabel, family == Family::Hazel ? "" : "Motor overload  ");
        EXPECT_EQ(asked, family == Family::Hazel ? 0 : 1) << familyName(family);
        EXPECT_EQ(name, family == Family::Aspen || family == Family::Hazel ? "oL1" : "oL1 ")
            << familyName(family);
        EXPECT_EQ(line.history.filter(" : ").join('|'),
                  family == Family::Hazel ? QString() : QString(name + " : Motor overload  "));
        line.keypad.STOPTransparentButtonClick();
        line.clock.advance(1500);
        EXPECT_EQ(line.motor().fault(), 0);
        EXPECT_EQ(line.keypad.screen.sheet, KeypadSheet::Main) << familyName(family);
    }
}

// A frequency whose answer is lost for good does not leave the display standing.
TEST(KeypadDisplay, GoesOnAfterAFrequencyThatGotNoProperAnswer) {
    for (const LineFault fault : {LineFault::WrongFunction, LineFault::Exception, LineFault::Silent}) {
        KeypadLine line(lineOf(Family::Larch, LineMode::Rtu));
        line.keypad.screen.InputEdit = "20";
        line.keypad.InputEditEnter();
        line.clock.advanceUntil([&] { return line.transcript().back() == "FF06200107D0"; }, 1000);
        line.faults().failNext(fault);
        line.clock.advance(20000);
        EXPECT_TRUE(line.keypad.GetDataTimer.Enabled()) << int(fault);
        EXPECT_EQ(line.sentSince(0).count("FF06200107D0"), fault == LineFault::Silent ? 2 : 1) << int(fault);
    }
}

TEST(KeypadRun, MovesTheDriveOfEveryFamily) {
    for (const Family family : AllFamilies) {
        KeypadLine line(lineOf(family, LineMode::Rtu));
        line.keypad.screen.InputEdit = "20";
        line.keypad.InputEditEnter();
        line.keypad.RUNTransparentButtonClick();
        line.clock.advance(40000);
        EXPECT_NEAR(line.motor().outputHz(), 20, 0.1) << familyName(family);
        EXPECT_TRUE(line.keypad.screen.red[RUNled] && !line.keypad.screen.red[STOPled]) << familyName(family);
        EXPECT_EQ(line.keypad.screen.displayVrLabel, "20.00");
        line.keypad.DIRTransparentButtonClick();
        line.clock.advance(200);
        EXPECT_TRUE(line.keypad.screen.RevFlash) << familyName(family);
        line.keypad.STOPTransparentButtonClick();
        line.clock.advanceUntil([&] { return !line.motor().running(); }, 100000);
        line.clock.advance(300);
        EXPECT_TRUE(line.keypad.screen.red[STOPled] && line.keypad.screen.red[REVled]) << familyName(family);
        line.keypad.JOGTransparentButtonMouseDown();
        line.clock.advance(2000);
        EXPECT_TRUE(line.keypad.screen.red[JOGled]) << familyName(family);
        line.keypad.JOGTransparentButtonMouseUp();
        line.clock.advance(6000);
        EXPECT_FALSE(line.motor().running()) << familyName(family);
        EXPECT_EQ(line.transcript().filter("FF062000").join(' '),
                  "FF0620000002 FF0620000030 FF0620000001 FF0620000003 FF0620000001");
        EXPECT_TRUE(line.credits.miscredited.isEmpty()) << line.credits.miscredited.join('\n').toStdString();
    }
}

TEST(KeypadMemory, StaysFlatOverAMillionTicks) {
    KeypadLine line(lineOf(Family::Larch, LineMode::Rtu, 115200));
    const int ticks = everyCase() ? 1000000 : 20000;
    const auto run = [&](int count) {
        for (int i = 0; i < count; ++i) {
            if (i % 997 == 0) line.motor().injectFault(5);
            if (i % 997 == 300) line.motor().reset();
            if (i % 1500 == 0) line.keypad.ModeTransparentButtonClick();
            line.clock.advance(TickLength);
            line.station.port.clearTranscript();
            line.history.clear();
        }
        return mallinfo2().uordblks;
    };
    const size_t warm = run(ticks / 10);
    const size_t later = run(ticks);
    EXPECT_LT(later, warm + 20000);
    EXPECT_LT(line.link.TaskQueue.size(), 8U);
}

}  // namespace
}  // namespace kelvane

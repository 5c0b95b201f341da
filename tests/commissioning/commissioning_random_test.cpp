// A person who does anything, over a line that does anything: the motor moves only when someone has asked for
// it, a closed window is silent, and every notice can be left.
#include <gtest/gtest.h>

#include <random>

#include "bench/hostile_line.h"
#include "commissioning_bench.h"

namespace kelvane {
namespace {

using drive::LineFault;

const QString RunFrame = QStringLiteral("FF0620000002");
const QString StopFrame = QStringLiteral("FF0620000001");

struct AnyPerson : CommissioningStand {
    PidControl pid{{link, clock, person, lang}};
    AutoTuning tuning{{link, clock, person, lang}};
    std::mt19937 random;
    // Asked for by a person in the open window, and exchanges begun for it. What the link sends again, since
    // it had no answer, belongs to its exchange.
    struct Motion {
        int runsWanted = 0;
        int runsBegun = 0;
        int tunesWanted = 0;
        int tunesBegun = 0;
    } motion;
    int begunInVisit = 0;
    bool sentAgain = false;  // the next frame is
    bool closed = false;
    QStringList wrong;

    AnyPerson(Family family, unsigned seed)
        : CommissioningStand(family, seed % 2 ? drive::LineMode::Rtu : drive::LineMode::Ascii), random(seed) {
        station.drive.options().tuneSeconds = 0.5;
        person.onBox = [this](const QString&) { return roll(3) ? BoxAnswer::Yes : BoxAnswer::No; };
        person.onLinkFailure = [this] {
            return std::array{LinkAnswer::Retry, LinkAnswer::Ignore, LinkAnswer::Abort}[size_t(roll(3))];
        };
        for (const LineFault fault :
             {LineFault::Silent, LineFault::BadCheck, LineFault::Late, LineFault::Doubled,
              LineFault::Exception, LineFault::CutShort, LineFault::WrongFunction})
            faults().setChance(fault, 3);
        faults().setSeed(seed);
        QObject::connect(&link, &RequestScheduler::cycleEnded, [this] { judgeFrames(); });
    }
    int roll(int sides) { return int(random() % unsigned(sides)); }
    bool anyTimer() const {
        return pid.RdTimer.running() || pid.WrTimer.running() || pid.MonitorTimer.running() ||
               tuning.RdTimer.running() || tuning.WrTimer.running() || tuning.sequence.running();
    }
    void pass() { clock.advance(roll(4) ? roll(200) : roll(8000)); }
    // With each end of an exchange: what has gone out for it.
    void judgeFrames() {
        for (const QString& frame : frames()) {
            if (frame == QLatin1String("FF0620000003")) wrong += "a jog";
            if (closed && frame.startsWith(QLatin1String("FF06")) && frame != StopFrame)
                wrong += "behind a closed window " + frame;
            if (std::exchange(sentAgain, false)) continue;
            if (frame == RunFrame && ++motion.runsBegun > motion.runsWanted)
                wrong += "a run that nobody asked for";
            if (isTuneMode(frame) && ++motion.tunesBegun > motion.tunesWanted)
                wrong += "a tuning that nobody asked for";
        }
        sentAgain = link.inHand();
    }
    bool isTuneMode(const QString& frame) const {
        const TuneFamily* tune = tuneFamily(link.DriveStatus.DriveFamily);
        return tune && frame.startsWith("FF06" + QString(tune->commandRegister)) &&
               frame.size() == (*tune->commandRegister ? 12 : 8);
    }
    void comeBack() {
        if (link.Lamp.onLine() && link.DriveStatus.DriveReady) return;
        for (int times = 0; times < 50 && !link.DriveStatus.DriveReady; ++times) {
            link.Initial();
            goOnLine(60000);
        }
        frames();
    }
    void actInPid() {
        switch (roll(8)) {
            case 0: return pid.ReadTransparentButtonClick();
            case 1: return pid.WriteTransparentButtonClick();
            case 2: motion.runsWanted += link.Lamp.onLine(); return pid.RUNTransparentButtonClick();
            case 3: return pid.STOPTransparentButtonClick();
            case 4: return leave(pid.line);
            default: return;
        }
    }
    void actInTuning() {
        switch (roll(9)) {
            case 0: return tuning.enabled.buttons ? tuning.ReadTransparentButtonClick() : void();
            case 1: return tuning.enabled.buttons ? tuning.WriteTransparentButtonClick() : void();
            case 2: return tuning.enabled.entry ? tune() : void();
            case 3: return leave(tuning.line);
            case 4:
                if (tuning.family()->hasTwoMotors() && tuning.enabled.buttons)
                    tuning.motorSelFormClosed(1 + roll(2));
                return;
            case 5: return stopTuning();
            default: return;
        }
    }
    // No RUN begins behind it.
    void stopTuning() {
        const bool runIsOut = !sentAgain && transcript().contains(RunFrame);
        if (link.Lamp.onLine()) motion.runsWanted = motion.runsBegun + runIsOut;
        tuning.stopDrive();
    }
    void tune() {
        tuning.TuneParaComboBoxChange(1 + roll(2));
        tuning.TuneTransparentButtonClick();
        motion.runsWanted += tuning.sequence.running();
        motion.tunesWanted += tuning.sequence.running();
    }
    void leave(const CommissioningLink& line) {
        if (!line.waitShown()) return;
        link.Notice.TInitialFormShown = false;
        link.notifyChanged();
        if (line.waitShown()) wrong += "a notice that stays";
    }
    template <class Engine>
    void visit(Engine& engine, LinkOwner owner, void (AnyPerson::*act)()) {
        comeBack();
        motion = {};
        closed = false;
        begin(owner);
        engine.opened();
        for (int steps = roll(12); steps >= 0; --steps) {
            pass();
            (this->*act)();
        }
        const bool runs = tuning.sequence.running();
        close(engine);
        if (anyTimer()) wrong += "a timer behind a closed window";
        if (link.Notice.TInitialFormShown) wrong += "a notice behind a closed window";
        judgeFrames();
        begunInVisit = motion.runsBegun + motion.tunesBegun;
        motion = {};
        closed = true;
        pass();
        pass();
        // Left alone in the middle, the drive ends its tuning without us.
        if (runs) station.drive.motor().stop();
    }
};

TEST(Commissioning, MovesTheMotorOnlyWhenAsked) {
    const unsigned visits = everyCase() ? 10000 : 600;
    const std::vector<Family> families{Family::Rowan, Family::Aspen,  Family::Larch,  Family::Tilia,
                                       Family::Osier, Family::Willow, Family::Yarrow, Family::Sorrel};
    int begun = 0;
    for (size_t f = 0; f < families.size(); ++f) {
        AnyPerson b(families[f], unsigned(f + 1));
        const bool tunes = tuneFamily(quint8(families[f])), hasPid = families[f] != Family::Sorrel;
        for (unsigned i = 0; i < visits / families.size() && b.wrong.isEmpty(); ++i) {
            if (hasPid && !(tunes && b.roll(2)))
                b.visit(b.pid, OwnerPid, &AnyPerson::actInPid);
            else
                b.visit(b.tuning, OwnerAutoTuning, &AnyPerson::actInTuning);
            begun += b.begunInVisit;
        }
        EXPECT_EQ(b.wrong.join(u'\n').toStdString(), "") << familyName(families[f]);
    }
    EXPECT_GT(begun, int(visits) / 8);  // there were some
}

// A line that loses, damages and delays replies; what is shown is what the drive holds, before and behind a
// write.
struct BadLine : AnyPerson {
    BadLine(Family family, unsigned seed) : AnyPerson(family, seed) {
        faults().clear();
        faults().setSeed(seed);
        for (const LineFault fault : {LineFault::Silent, LineFault::BadCheck, LineFault::Late})
            faults().setChance(fault, 2);
        person.onLinkFailure = [] { return LinkAnswer::Retry; };
    }
    template <class Engine>
    void writeAndReadBack(Engine& engine, LinkOwner owner) {
        begin(owner);
        engine.opened();
        for (int times = 0; times < 4; ++times) {
            ASSERT_TRUE(idle(engine.line, 600000));
            expectTrue(engine.rows);
            for (int row = 1; row <= engine.rows.count(); ++row)
                engine.rows.setData(
                    row, engine.rows.text(times % 2 ? ParameterRows::Min : ParameterRows::Default, row));
            engine.WriteTransparentButtonClick();
            ASSERT_TRUE(idle(engine.line, 600000));
            expectTrue(engine.rows);
            engine.ReadTransparentButtonClick();
        }
        close(engine);
        EXPECT_EQ(credits.miscredited, QStringList());
    }
    void expectTrue(const ParameterRows& rows) {
        for (int row = 1; row <= rows.count(); ++row) {
            if (rows.text(ParameterRows::PrNo, row) == QLatin1String(NoParameter)) continue;
            EXPECT_EQ(rows.word(row),
                      QString::asprintf("%04X", value(rows.registerText(row).toInt(nullptr, 16)) & 0xFFFF))
                << rows.registerText(row).toStdString();
        }
    }
};

TEST(Commissioning, ShowsAndWritesTrueValuesOverABadLine) {
    const unsigned seeds = everyCase() ? 40 : 2;
    for (unsigned seed = 1; seed <= seeds; ++seed) {
        for (const PidFamily& family : pidFamilies()) {
            SCOPED_TRACE(testing::Message() << "PID " << familyName(family.family) << " seed " << seed);
            BadLine b(family.family, seed);
            b.writeAndReadBack(b.pid, OwnerPid);
        }
        for (const Family family : AllFamilies) {
            if (!tuneFamily(quint8(family))) continue;
            SCOPED_TRACE(testing::Message() << "tuning " << familyName(family) << " seed " << seed);
            BadLine b(family, seed);
            b.writeAndReadBack(b.tuning, OwnerAutoTuning);
        }
    }
}

}  // namespace
}  // namespace kelvane

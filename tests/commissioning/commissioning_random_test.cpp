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

struct AnyPerson : CommissioningStand {
    PidControl pid{{link, clock, user, lang}};
    AutoTuning tuning{{link, clock, user, lang}};
    std::mt19937 random;
    int runsWanted = 0;  // by RUN clicks and runs of tuning in the open window
    int runsSent = 0;
    QStringList wrong;

    AnyPerson(Family family, unsigned seed)
        : CommissioningStand(family, seed % 2 ? drive::LineMode::Rtu : drive::LineMode::Ascii), random(seed) {
        station.drive.options().tuneSeconds = 0.5;
        user.onBox = [this](const QString&) { return roll(3) ? BoxAnswer::Yes : BoxAnswer::No; };
        user.onLinkFailure = [this] {
            return std::array{LinkAnswer::Retry, LinkAnswer::Ignore, LinkAnswer::Abort}[size_t(roll(3))];
        };
        for (const LineFault fault :
             {LineFault::Silent, LineFault::BadCheck, LineFault::Late, LineFault::Doubled,
              LineFault::Exception, LineFault::CutShort, LineFault::WrongFunction})
            faults().setChance(fault, 3);
        faults().setSeed(seed);
    }
    int roll(int sides) { return int(random() % unsigned(sides)); }
    bool anyTimer() const {
        return pid.RdTimer.running() || pid.WrTimer.running() || pid.MonitorTimer.running() ||
               tuning.RdTimer.running() || tuning.WrTimer.running() || tuning.sequence.running();
    }
    void pass() {
        clock.advance(roll(4) ? roll(200) : roll(8000));
        for (const QString& frame : frames()) {
            if (frame == QLatin1String("FF0620000003")) wrong += "a jog";
            if (frame == RunFrame && ++runsSent > runsWanted * 6) wrong += "a run that nobody asked for";
        }
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
            case 2: runsWanted += link.Lamp.onLine(); return pid.RUNTransparentButtonClick();
            case 3: return pid.STOPTransparentButtonClick();
            case 4: return leave(pid.line);
            default: return;
        }
    }
    void actInTuning() {
        switch (roll(9)) {
            case 0: return tuning.ReadTransparentButtonClick();
            case 1: return tuning.WriteTransparentButtonClick();
            case 2:
                tuning.TuneParaComboBoxChange(1 + roll(2));
                ++runsWanted;
                return tuning.TuneTransparentButtonClick();
            case 3: return leave(tuning.line);
            case 4:
                if (tuning.family()->hasTwoMotors()) tuning.motorSelFormClosed(1 + roll(2));
                return;
            default: return;
        }
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
        runsWanted = runsSent = 0;
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
        frames();
        runsWanted = runsSent = 0;
        pass();
        pass();
        // Left alone in the middle, the drive ends its tuning without us.
        if (runs) station.drive.motor().stop();
    }
};

TEST(Commissioning, MovesTheMotorOnlyWhenAsked) {
    const int sequences = everyCase() ? 10000 : 600;
    const Family families[] = {Family::Rowan, Family::Larch, Family::Tilia, Family::Willow};
    for (size_t f = 0; f < std::size(families); ++f) {
        AnyPerson b(families[f], unsigned(f + 1));
        for (int i = 0; i < sequences / int(std::size(families)) && b.wrong.isEmpty(); ++i)
            b.roll(2) ? b.visit(b.pid, OwnerPid, &AnyPerson::actInPid)
                      : b.visit(b.tuning, OwnerAutoTuning, &AnyPerson::actInTuning);
        EXPECT_EQ(b.wrong, QStringList()) << familyName(families[f]);
    }
}

// On a line that loses, damages and delays one reply in a hundred, what is shown is what the drive holds.
TEST(Commissioning, ShowsAndWritesTrueValuesOverABadLine) {
    for (const PidFamily& family : pidFamilies()) {
        AnyPerson b(family.family, 7);
        b.faults().clear();
        b.faults().setSeed(unsigned(family.family) + 3);
        for (const LineFault fault : {LineFault::Silent, LineFault::BadCheck, LineFault::Late})
            b.faults().setChance(fault, 2);
        b.user.onLinkFailure = [] { return LinkAnswer::Retry; };
        b.begin(OwnerPid);
        b.pid.opened();
        for (int times = 0; times < 5; ++times) {
            ASSERT_TRUE(b.idle(b.pid.line, 600000));
            for (int row = 1; row <= b.pid.ParamCount(); ++row) {
                const int reg = b.pid.rows.registerText(row).toInt(nullptr, 16);
                EXPECT_EQ(withoutSeparatorToInt(b.pid.rows.text(ParameterRows::Data, row)), b.value(reg));
                b.pid.rows.setData(
                    row, b.pid.rows.text(times % 2 ? ParameterRows::Min : ParameterRows::Default, row));
            }
            b.pid.WriteTransparentButtonClick();
            ASSERT_TRUE(b.idle(b.pid.line, 600000));
            for (int row = 1; row <= b.pid.ParamCount(); ++row) {
                const int reg = b.pid.rows.registerText(row).toInt(nullptr, 16);
                EXPECT_EQ(withoutSeparatorToInt(b.pid.rows.text(ParameterRows::Data, row)), b.value(reg));
            }
            b.pid.ReadTransparentButtonClick();
        }
        b.close(b.pid);
    }
}

}  // namespace
}  // namespace kelvane

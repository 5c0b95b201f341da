// The order of a motor auto tuning run: stop the drive, wait until it stands, write the mode, run, wait until
// the drive has stopped by itself, read the result and report it. No step has a time limit: a run takes as
// long as the drive says. One step goes out when the one before was answered.
#pragma once

#include <functional>

#include "commissioning/commissioning_link.h"
#include "commissioning/commissioning_tables.h"

namespace kelvane {

class TuningSequence {
   public:
    TuningSequence(const CommissioningSite& site, CommissioningLink& line);

    quint8 TuneStep = 0;   // 1 to 8, see Steps; 0 before a run
    quint8 TunePhase = 0;  // step at which the present one was entered
    quint16 speed = 0;     // register 211Ch while the drive is being waited for
    RequestChain MonitorTimer;

    std::function<void()> ended;  // the result has been shown
    std::function<void()> speedRead;

    // entry is what the command register gets.
    void start(const TuneFamily& family, int entry);
    void stop();
    // Instead of the run: the state is read until the drive stands.
    void watchUntilStopped();
    bool running() const { return MonitorTimer.running(); }
    // The drive may be turning the motor by itself, or would at the next RUN.
    bool leavesDriveTuning() const {
        return running() && TuneStep >= 1 && TuneStep <= 6 && TunePhase != StoppedByHand;
    }
    // The mode has been sent and not yet been used up by a run.
    bool modeIsSet() const { return TuneStep == 3; }

   private:
    static constexpr quint8 StoppedByHand = 9;
    using Request = std::optional<LinkRequest>;
    struct Step {
        quint8 TuneStep;
        Request (TuningSequence::*go)();
    };
    static const Step Steps[];
    Request nextStep();
    Request stopDrive();
    Request waitForStop();
    Request writeMode();
    Request runDrive();
    Request watchRun();
    Request judgeResult();
    Request tellFailure();
    Request readState(quint8 step, quint8 phase);
    Request enter(quint8 step, quint8 phase, const LinkRequest& request);
    quint16 resultCode() const;

    const CommissioningSite m_site;
    CommissioningLink& m_line;
    const TuneFamily* m_family = nullptr;
    int m_entry = 0;
};

}  // namespace kelvane

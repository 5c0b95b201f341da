// The keypad over a link that is at rest: the test puts the drive's words into the records, ticks, and looks
// at the screen and at what was pushed.
#pragma once

#include "bench/link_bench.h"
#include "diagnostics/keypad/keypad.h"

namespace kelvane {

struct KeypadBench : SchedulerBench {
    Keypad keypad{link, clock, person, lang};
    DriveStatusRecord& status = link.DriveStatus;
    const KeypadScreen& screen = keypad.screen;

    explicit KeypadBench(Family family = Family::Larch, std::initializer_list<quint16> counts = {5, 3}) {
        link.Initial();
        identify(family, counts);
        tick();
        taken();
    }

    // The drive has said who it is and answered the first poll.
    void identify(Family family, std::initializer_list<quint16> counts) {
        link.emptyQueues();
        status.DriveFamily = static_cast<quint8>(family);
        status.GroupCount = static_cast<quint8>(counts.size());
        status.GroupParamCount.fill(3);
        std::copy(counts.begin(), counts.end(), status.GroupParamCount.begin());
        status.MaxFreqWord = 6000;
        setStatus({0, 0, 6000, 5998, 123});
        link.setLamp(LampState::OnLine);
        Q_EMIT link.identificationEnded();
        poll();
    }
    void setStatus(std::initializer_list<quint32> words) {
        std::copy(words.begin(), words.end(), status.StatusWords.begin());
        status.FaultCode = static_cast<quint8>(status.StatusWords[0] & 0xFF);
        if (status.FaultCode == 0) status.FaultTextValid = 0;
        status.StatusText[0] = "60.00";
        status.StatusText[1] = "59.98";
        status.StatusText[2] = "12.3";
    }
    void poll() {
        status.DriveReady = 1;
        Q_EMIT link.statusDecoded();
    }
    void setState(quint32 word) {
        status.StatusWords[1] = word;
        status.JogActive = word >> 2 & 1;
    }
    // Waiting ticks, without the link's own timers.
    void tick(int times = 1) {
        for (int i = 0; i < times; ++i) {
            link.rest();
            clock.advance(TickLength);
        }
    }
    // What was pushed since, "task command", and the queues are empty.
    QString taken() {
        QStringList pushed;
        for (size_t i = 0; i < link.TaskQueue.size(); ++i)
            pushed += QString::number(link.TaskQueue[i]) + " " +
                      (i < link.CommandQueue.size() ? link.CommandQueue[i] : QString());
        link.TaskQueue.clear();
        link.emptyQueues();
        link.rest();
        return pushed.join(", ");
    }
    // The drive answers the read that the keypad has pushed.
    void record(std::array<quint16, 5> words, const QString& name, const QString& unit) {
        link.ParamRead.ReadField = words;
        link.ParamRead.ReadName = name;
        link.ParamRead.ReadUnit = unit;
        answer(12);
        tick();
    }
    // A good reply to the front request.
    void answer(quint8 task) {
        link.ParamRead.ReadDone = 1;
        Q_EMIT link.answered(task, link.CommandQueue.front(), {});
        taken();
    }
    QString leds() const {
        const char* names[] = {"RUN", "STOP", "JOG", "FWD", "REV", "EXT", "PU", "F", "H", "U"};
        QStringList lit;
        for (size_t i = 0; i < KeypadLedCount; ++i)
            if (screen.red[i]) lit += names[i];
        return lit.join(' ');
    }
    QString blinking() const {
        QStringList names;
        if (screen.RunFlash) names += "RUN";
        if (screen.StopFlash) names += "STOP";
        if (screen.FwdFlash) names += "FWD";
        if (screen.RevFlash) names += "REV";
        return names.join(' ');
    }
};

}  // namespace kelvane

// Who has the link, and what that means for it: one row an owner. Nothing else compares ActiveFunction.
#pragma once

#include <QtGlobal>

namespace kelvane {

// Values of ActiveFunction.
enum LinkOwner : quint8 {
    OwnerMain = 1,
    OwnerTrend = 2,
    OwnerMonitor = 3,
    OwnerParameter = 4,
    OwnerQuickSetup = 5,
    OwnerAdvance = 6,
    OwnerAutoTuning = 7,
    OwnerPid = 8,
};

struct OwnerRow {
    quint8 ActiveFunction;
    bool polls = false;                    // the status poll runs while nothing else is asked
    bool keypadRests = false;              // a status reply does not start the keypad's timer
    bool endsWaitNotice = false;           // the first status reply closes TInitialForm
    bool goesOnForIdentification = false;  // also for the text of a refusal, which runs outside the poll
    bool emptiesQueues = false;            // after every exchange
    bool refusalMarksWritten = false;
    bool reads = false;    // its progress dialog is ended by Abort and Ignore
    bool console = false;  // the console's policy of the exchange holds

    bool is(LinkOwner owner) const { return ActiveFunction == owner; }
};

// The row of an ActiveFunction; the main window's for any other value.
const OwnerRow& ownerRow(quint8 ActiveFunction);

}  // namespace kelvane

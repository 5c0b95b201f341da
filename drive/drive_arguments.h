// The command line of kelvane-drive, read into what a practice drive and its line need.
#pragma once

#include <QStringList>

#include "drive/line_model.h"

namespace kelvane::drive {

struct DriveArguments {
    Family family = Family::Larch;
    LineOptions line;
    DriveOptions drive;
    double losePercent = 0;
    double corruptPercent = 0;
    double latePercent = 0;
    uint32_t seed = 1;
    LineFault planned = LineFault::None;  // of the reply plannedAt, counted from 1
    int plannedAt = 0;
    bool untilEof = false;

    bool helpWanted = false;
    QString helpText;
    QString error;  // empty when all arguments could be read
};

DriveArguments readArguments(const QStringList& arguments);

}  // namespace kelvane::drive

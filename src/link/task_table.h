// What a task code means: the command that the send step generates for it, and what a good reply fills. Tasks
// 0, 1, 21 and 50 to 52 identify the drive and get their handlers from the catalogue; those of the keypad's
// keys and displays (2, 3, 5 to 10, 14) belong to diagnostics.
#pragma once

#include <QString>

#include "link/link_records.h"

namespace kelvane {

class RequestScheduler;

// Command of tasks 1, 4, 11, 21, 50 to 53, 80 and 81; empty for all others, whose command comes with the
// push, and for a family without an entry.
QString generatedCommand(quint8 task, const DriveStatusRecord& DriveStatus);

inline constexpr quint8 ExceptionTextTask = 15;
QString exceptionTextCommand(quint8 DriveFamily, quint8 code);
// Stores the text of a refusal, empty when the drive refused that too, and tells those who wait for it.
void storeExceptionText(RequestScheduler& link, const QString& text);

// Commands that are pushed with their task.
QString ratedWordsCommand(quint8 DriveFamily);  // task 7
QString maxFreqCommand(quint8 DriveFamily);     // task 9

// Sets the reply handlers of this table.
void installTaskTable(RequestScheduler& link);

}  // namespace kelvane

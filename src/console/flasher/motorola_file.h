// S-record files (.mot) of the flasher page: each record becomes the command text that is sent.
#pragma once

#include <QByteArray>
#include <QStringList>

namespace kelvane {

inline constexpr int FlashLinesRoom = 9000;

// "S1..." becomes "5331...": the hexadecimal text of the record's two first characters and the rest as it
// stands. Empty for a line that does not begin with "S" and a digit.
QString flashLine(const QString& record);

struct MotorolaFile {
    QStringList lines;     // converted
    bool tooLong = false;  // more records than there is room for; lines is empty then
};
MotorolaFile readMotorolaFile(const QByteArray& bytes);

}  // namespace kelvane

// The user display of a drive: a value and a format word, as the digits and the lead character that the
// drive's own keypad would show.
#pragma once

#include <QString>
#include <optional>

namespace kelvane {

struct UserDisplay {
    QString displayVrLabel;
    std::optional<QString> LeadChVrLabel;  // nothing: the old lead stays
};

// value and format are the words of task 7.
UserDisplay userDisplay(quint8 DriveFamily, quint16 value, quint16 format);

// Text of a seven-segment pattern; empty for a pattern that is no character.
QString SegmentGlyphs(quint8 pattern);

}  // namespace kelvane

// Text of the system's 8-bit kind. Bytes from a drive or a file become characters of the same number and go
// back as the same bytes, so nothing that came in is changed by going out again.
#pragma once

#include <QByteArray>
#include <QString>

namespace kelvane {

inline QString from8Bit(const QByteArray& bytes) { return QString::fromLatin1(bytes); }

// Characters above FFh have no byte and become "?".
inline QByteArray to8Bit(const QString& text) { return text.toLatin1(); }

// "\x0D" for characters below 33, the others as they are: the form in which the logs show ASCII frames.
QString withControlsEscaped(const QByteArray& bytes);

}  // namespace kelvane

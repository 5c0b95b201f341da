// Frames as the practice drive makes and reads them: the checks of both modes, written apart from the tool's
// own codec so that an error in one is not hidden by the same error in the other. Used by the line model.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <cstdint>
#include <optional>

namespace kelvane::drive {

enum class LineMode : uint8_t { Ascii, Rtu };

// CRC-16 of Modbus RTU; its low byte goes on the wire first.
uint16_t crcOf(QByteArrayView body);
// LRC of Modbus ASCII over the binary body.
uint8_t lrcOf(QByteArrayView body);

// Frame of a body (address, function, data).
QByteArray wrap(const QByteArray& body, LineMode mode);
// Body of a frame; nothing when its shape or its check is wrong.
std::optional<QByteArray> unwrap(const QByteArray& frame, LineMode mode);
// The same frame with a check that does not hold.
QByteArray withBadCheck(QByteArray frame, LineMode mode);

// Upper-case hexadecimal digits, two a byte.
QString hexText(const QByteArray& bytes);

}  // namespace kelvane::drive

#include "drive/drive_frame.h"

#include <array>

namespace kelvane::drive {

namespace {

constexpr uint16_t CrcPolynomial = 0x8005;  // x^16 + x^15 + x^2 + 1, most significant bit first

constexpr uint16_t mirrored(uint16_t value, int bits) {
    uint16_t result = 0;
    for (int i = 0; i < bits; ++i) {
        if (value >> i & 1) result = uint16_t(result | 1u << (bits - 1 - i));
    }
    return result;
}

constexpr std::array<uint16_t, 256> makeCrcTable() {
    std::array<uint16_t, 256> table{};
    for (int byte = 0; byte < 256; ++byte) {
        uint16_t rest = uint16_t(mirrored(uint16_t(byte), 8) << 8);
        for (int bit = 0; bit < 8; ++bit) {
            rest = uint16_t(rest & 0x8000 ? rest << 1 ^ CrcPolynomial : rest << 1);
        }
        table[size_t(byte)] = mirrored(rest, 16);
    }
    return table;
}

constexpr auto CrcTable = makeCrcTable();

int hexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

std::optional<QByteArray> bytesOfHex(QByteArrayView text) {
    if (text.size() % 2) return {};
    QByteArray bytes;
    for (qsizetype i = 0; i < text.size(); i += 2) {
        const int high = hexDigit(text[i]);
        const int low = hexDigit(text[i + 1]);
        if (high < 0 || low < 0) return {};
        bytes.append(char(high * 16 + low));
    }
    return bytes;
}

std::optional<QByteArray> unwrapAscii(const QByteArray& frame) {
    if (frame.size() < 9 || !frame.startsWith(':') || !frame.endsWith("\r\n")) return {};
    auto bytes = bytesOfHex(QByteArrayView(frame).sliced(1, frame.size() - 3));
    // Body and check together add up to nothing.
    if (!bytes || lrcOf(*bytes) != 0) return {};
    bytes->chop(1);
    return bytes;
}

std::optional<QByteArray> unwrapRtu(const QByteArray& frame) {
    // The CRC over a frame with its own CRC leaves no rest.
    if (frame.size() < 4 || crcOf(frame) != 0) return {};
    return frame.chopped(2);
}

}  // namespace

uint16_t crcOf(QByteArrayView body) {
    uint16_t crc = 0xFFFF;
    for (const char c : body) crc = uint16_t(crc >> 8 ^ CrcTable[(crc ^ uint8_t(c)) & 0xFF]);
    return crc;
}

uint8_t lrcOf(QByteArrayView body) {
    unsigned sum = 0;
    for (const char c : body) sum += uint8_t(c);
    return uint8_t(256 - sum % 256);
}

QByteArray wrap(const QByteArray& body, LineMode mode) {
    QByteArray checked = body;
    if (mode == LineMode::Ascii) {
        checked.append(char(lrcOf(body)));
        return QByteArray(":").append(checked.toHex().toUpper()).append("\r\n");
    }
    const uint16_t crc = crcOf(body);
    return checked.append(char(crc & 0xFF)).append(char(crc >> 8));
}

std::optional<QByteArray> unwrap(const QByteArray& frame, LineMode mode) {
    return mode == LineMode::Ascii ? unwrapAscii(frame) : unwrapRtu(frame);
}

QByteArray withBadCheck(QByteArray frame, LineMode mode) {
    if (frame.size() < 4) return frame;
    char& check = frame[mode == LineMode::Ascii ? frame.size() - 3 : frame.size() - 1];
    check = mode == LineMode::Ascii ? (check == '0' ? '1' : '0') : char(check ^ 0x55);
    return frame;
}

QString hexText(const QByteArray& bytes) { return QString::fromLatin1(bytes.toHex().toUpper()); }

}  // namespace kelvane::drive

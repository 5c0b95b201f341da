// Little-endian numbers in byte buffers, as the .xls file has them everywhere. The reading view answers 0
// past its end, so that no offset from a file can lead out of the buffer.
#pragma once

#include <QByteArray>
#include <bit>
#include <cstddef>

namespace kelvane {

inline void appendU8(QByteArray& out, quint32 value) { out.append(static_cast<char>(value)); }
inline void appendU16(QByteArray& out, quint32 value) {
    appendU8(out, value);
    appendU8(out, value >> 8);
}
inline void appendU32(QByteArray& out, quint32 value) {
    appendU16(out, value);
    appendU16(out, value >> 16);
}
inline void overwriteU32(QByteArray& out, qsizetype at, quint32 value) {
    for (int i = 0; i < 4; ++i) out[at + i] = static_cast<char>(value >> (8 * i));
}

class ByteView {
   public:
    ByteView() = default;
    ByteView(const QByteArray& bytes)
        : m_data(bytes.constData()), m_size(static_cast<std::size_t>(bytes.size())) {}

    std::size_t size() const { return m_size; }
    bool has(std::size_t at, std::size_t length) const { return at <= m_size && length <= m_size - at; }
    quint8 u8(std::size_t at) const { return at < m_size ? static_cast<quint8>(m_data[at]) : quint8(0); }
    quint16 u16(std::size_t at) const { return static_cast<quint16>(u8(at) | u8(at + 1) << 8); }
    quint32 u32(std::size_t at) const { return u16(at) | static_cast<quint32>(u16(at + 2)) << 16; }
    double f64(std::size_t at) const {
        return std::bit_cast<double>(u32(at) | static_cast<quint64>(u32(at + 4)) << 32);
    }
    // Clipped to what there is.
    ByteView part(std::size_t at, std::size_t length) const {
        if (at > m_size) return {};
        return {m_data + at, length < m_size - at ? length : m_size - at};
    }
    const char* data() const { return m_data; }
    bool startsWith(const QByteArray& bytes) const {
        return QByteArrayView(m_data, static_cast<qsizetype>(m_size)).startsWith(bytes);
    }

   private:
    ByteView(const char* data, std::size_t size) : m_data(data), m_size(size) {}
    const char* m_data = nullptr;
    std::size_t m_size = 0;
};

}  // namespace kelvane

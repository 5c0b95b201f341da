#include "spreadsheet/biff_stream.h"

#include <algorithm>

#include "spreadsheet/biff_records.h"

namespace kelvane {

bool BodyReader::enterPiece() {
    while (m_piece < m_pieces.size() && m_at >= m_pieces[m_piece].size()) {
        ++m_piece;
        m_at = 0;
    }
    if (m_piece >= m_pieces.size()) m_good = false;
    return m_good;
}

quint8 BodyReader::u8() { return m_good && enterPiece() ? m_pieces[m_piece].u8(m_at++) : quint8(0); }

quint16 BodyReader::u16() {
    const quint16 low = u8();
    return static_cast<quint16>(low | u8() << 8);
}

quint32 BodyReader::u32() {
    const quint32 low = u16();
    return low | static_cast<quint32>(u16()) << 16;
}

void BodyReader::skip(quint32 bytes) {
    while (bytes > 0 && m_good && enterPiece()) {
        const std::size_t now = std::min<std::size_t>(bytes, m_pieces[m_piece].size() - m_at);
        m_at += now;
        bytes -= static_cast<quint32>(now);
    }
}

QString BodyReader::text(int characters) {
    quint8 form = u8();
    const quint32 runs = (form & 0x08) != 0 ? u16() : 0u;
    const quint32 phonetic = (form & 0x04) != 0 ? u32() : 0u;
    QString text;
    while (m_good && text.size() < characters) {
        if (m_at >= m_pieces[m_piece].size()) {
            if (!enterPiece()) break;
            form = u8();
        }
        const bool wide = (form & 0x01) != 0;
        const std::size_t left = m_pieces[m_piece].size() - m_at;
        if (left == 1 && wide) m_good = false;  // cut inside a character
        const std::size_t now = std::min(left / (wide ? 2 : 1), std::size_t(characters - text.size()));
        text.reserve(text.size() + static_cast<qsizetype>(now));
        for (std::size_t i = 0; i < now; ++i, m_at += wide ? 2 : 1)
            text.append(wide ? QChar(m_pieces[m_piece].u16(m_at)) : QChar(m_pieces[m_piece].u8(m_at)));
    }
    skip(runs * 4);
    skip(phonetic);
    return m_good ? text : QString();
}

bool RecordWalker::recordAt(std::size_t at, quint16& kind, ByteView& body) const {
    if (!m_stream.has(at, 4) || !m_stream.has(at + 4, m_stream.u16(at + 2))) return false;
    kind = m_stream.u16(at);
    body = m_stream.part(at + 4, m_stream.u16(at + 2));
    return true;
}

bool RecordWalker::next() {
    if (!recordAt(m_next, m_kind, m_head)) return false;
    const std::size_t used = m_head.size() + 4;
    if (used > m_budget.bytes) return false;
    m_budget.bytes -= used;
    m_next += used;
    return true;
}

BodyReader RecordWalker::body() {
    std::vector<ByteView> pieces{m_head};
    quint16 kind = 0;
    ByteView piece;
    while (recordAt(m_next, kind, piece) && kind == biff::Continue) {
        const std::size_t used = piece.size() + 4;
        if (used > m_budget.bytes) break;
        m_budget.bytes -= used;
        m_next += used;
        pieces.push_back(piece);
    }
    return BodyReader(std::move(pieces));
}

}  // namespace kelvane

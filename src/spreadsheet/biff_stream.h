// Walks the records of a workbook stream. A record comes with its continuations as one body that remembers
// where the pieces join, since a text that is cut there begins its next piece with a form byte of its own.
#pragma once

#include <QString>
#include <vector>

#include "spreadsheet/little_endian.h"

namespace kelvane {

// Reads through the pieces of a record's body. After the first read past the end good() is false and every
// further read gives 0 or empty.
class BodyReader {
   public:
    explicit BodyReader(std::vector<ByteView> pieces) : m_pieces(std::move(pieces)) {}

    bool good() const { return m_good; }
    quint8 u8();
    quint16 u16();
    quint32 u32();
    void skip(quint32 bytes);
    QString shortText() { return text(u8()); }  // with a count of one byte
    QString longText() { return text(u16()); }

   private:
    QString text(int characters);  // form byte, counts of runs and phonetics, characters, runs, phonetics
    bool enterPiece();             // moves over finished pieces; false at the end of the body
    std::vector<ByteView> m_pieces;
    std::size_t m_piece = 0;
    std::size_t m_at = 0;
    bool m_good = true;
};

class RecordWalker {
   public:
    // Bounds the work over all walks of one stream, so that sheets that overlap cannot multiply it.
    struct Budget {
        std::size_t bytes;
    };
    RecordWalker(const QByteArray& stream, std::size_t start, Budget& budget)
        : m_stream(stream), m_next(start), m_budget(budget) {}

    // The next record; false when the stream ends, is cut inside a record or the budget is used up.
    bool next();
    quint16 kind() const { return m_kind; }
    const ByteView& head() const { return m_head; }  // the body without continuations
    BodyReader body();                               // with them; the next record is the one behind them

   private:
    bool recordAt(std::size_t at, quint16& kind, ByteView& body) const;
    ByteView m_stream;
    std::size_t m_next;
    Budget& m_budget;
    quint16 m_kind = 0;
    ByteView m_head;
};

}  // namespace kelvane

#include "spreadsheet/shared_strings.h"

#include <algorithm>

#include "spreadsheet/biff_records.h"
#include "spreadsheet/little_endian.h"

namespace kelvane {

namespace {

constexpr qsizetype TextHeaderBytes = 3;

// Writes one long record as a record and its continuations; each length is filled in when the next one
// begins.
class ContinuedRecord {
   public:
    ContinuedRecord(QByteArray& out, quint16 kind) : m_out(out) { begin(kind); }
    ~ContinuedRecord() { end(); }
    ContinuedRecord(const ContinuedRecord&) = delete;
    ContinuedRecord& operator=(const ContinuedRecord&) = delete;

    qsizetype room() const { return biff::MaxRecordBytes - used(); }
    qsizetype offsetInRecord() const { return used() + 4; }
    void goOn() {
        end();
        begin(biff::Continue);
    }

   private:
    qsizetype used() const { return m_out.size() - m_begin - 4; }
    void begin(quint16 kind) {
        m_begin = m_out.size();
        appendU16(m_out, kind);
        appendU16(m_out, 0);
    }
    void end() {
        m_out[m_begin + 2] = static_cast<char>(used());
        m_out[m_begin + 3] = static_cast<char>(used() >> 8);
    }
    QByteArray& m_out;
    qsizetype m_begin = 0;
};

// A text may be cut between two characters; its rest then begins with its form again.
void appendText(QByteArray& out, ContinuedRecord& record, const QString& text) {
    const bool eightBit = fitsEightBit(text);
    const qsizetype width = eightBit ? 1 : 2;
    appendU16(out, quint32(text.size()));
    appendU8(out, eightBit ? 0 : 1);
    for (QStringView rest = text; !rest.isEmpty();) {
        const qsizetype now = std::min(rest.size(), record.room() / width);
        appendCharacters(out, rest.first(now), eightBit);
        rest = rest.sliced(now);
        if (rest.isEmpty()) break;
        record.goOn();
        appendU8(out, eightBit ? 0 : 1);
    }
}

}  // namespace

bool fitsEightBit(const QString& text) {
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x100; });
}

void appendCharacters(QByteArray& out, QStringView text, bool eightBit) {
    for (const QChar c : text) {
        appendU8(out, c.unicode());
        if (!eightBit) appendU8(out, c.unicode() >> 8);
    }
}

quint32 SharedStrings::indexOf(const QString& text) {
    ++m_uses;
    const auto next = static_cast<quint32>(m_texts.size());
    const auto found = m_index.constFind(text);
    if (found != m_index.constEnd()) return *found;
    m_index.insert(text, next);
    m_texts.push_back(text);
    return next;
}

void SharedStrings::append(QByteArray& out) const {
    const auto count = static_cast<quint32>(m_texts.size());
    const quint32 perBucket = std::max(8u, count / 128 + 1);
    QByteArray buckets;
    {
        ContinuedRecord record(out, biff::SharedStrings);
        appendU32(out, m_uses);
        appendU32(out, count);
        for (quint32 i = 0; i < count; ++i) {
            const QString& text = m_texts[i];
            // Header and first character stay together.
            if (record.room() < TextHeaderBytes + 2) record.goOn();
            if (i % perBucket == 0) {
                appendU32(buckets, quint32(out.size()));
                appendU16(buckets, quint32(record.offsetInRecord()));
                appendU16(buckets, 0);
            }
            appendText(out, record, text);
        }
    }
    appendU16(out, biff::ExtSst);
    appendU16(out, quint32(buckets.size()) + 2);
    appendU16(out, perBucket);
    out.append(buckets);
}

}  // namespace kelvane

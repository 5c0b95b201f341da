// The records of one trend in a single array, and an index over it that tells the extremes of any range at
// once: blocks of 64 records, of 1024, 16384 and so on. Plots of a million records and more read it; the
// recorder appends. Positions count from 0. Memory: 24 bytes a record, half a byte more for the index, and
// while it grows a quarter in reserve.
#pragma once

#include <QtGlobal>
#include <memory>
#include <span>
#include <vector>

#include "base/trend_record.h"

namespace kelvane {

// Lowest and highest digit of each channel over some records; separators only count as breaks.
struct TrendExtremes {
    std::array<quint16, TrendChannelRoom> low;
    std::array<quint16, TrendChannelRoom> high;
    bool any = false;     // a record that is no separator
    bool breaks = false;  // a separator

    TrendExtremes() {
        low.fill(0xFFFF);
        high.fill(0);
    }
    void add(std::span<const TrendRecord> records);
    void add(const TrendExtremes& other);
};

struct FreeRecords {
    size_t mappedBytes = 0;  // of an array with pages of its own
    void operator()(TrendRecord* data) const;
};

class TrendRecords {
   public:
    TrendRecords() = default;
    TrendRecords(const TrendRecords&) = delete;
    TrendRecords& operator=(const TrendRecords&) = delete;

    qint64 size() const { return m_size; }
    bool isEmpty() const { return m_size == 0; }
    const TrendRecord& operator[](qint64 at) const { return m_data.get()[at]; }
    const TrendRecord& last() const { return m_data.get()[m_size - 1]; }
    std::span<const TrendRecord> all() const { return {m_data.get(), static_cast<size_t>(m_size)}; }

    // All of these answer false, and change nothing, when there is no memory for it.
    [[nodiscard]] bool append(const TrendRecord& record);
    [[nodiscard]] bool insert(qint64 at, int count, const TrendRecord& record);
    // Room for exactly that many more at the end, to be filled by the caller with what it then says by
    // grown(). Null when there is no memory.
    [[nodiscard]] TrendRecord* roomFor(qint64 count);
    void grown(qint64 count);
    void dropFront(qint64 count);
    void clear();

    // Of the records from (included) to to (excluded), clipped to what exists.
    TrendExtremes extremes(qint64 from, qint64 to) const;
    // The nearest record to at that is no separator, at most reach records away; -1 when there is none.
    qint64 nearestSample(qint64 at, qint64 reach = 1000) const;
    qint64 bytesHeld() const;

   private:
    bool reserve(qint64 capacity);
    bool makeRoom(qint64 count);
    void indexNewBlocks() const;
    void forgetIndexFrom(qint64 record) const;
    std::unique_ptr<TrendRecord, FreeRecords> m_data;
    qint64 m_size = 0;
    qint64 m_capacity = 0;
    mutable std::vector<std::vector<TrendExtremes>> m_levels;  // whole blocks only
};

}  // namespace kelvane

#include "base/trend_records.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#ifdef Q_OS_LINUX
#include <sys/mman.h>
#endif

namespace kelvane {

namespace {

constexpr int FirstShift = 6;  // 64 records a block of the lowest level
constexpr int LevelShift = 4;  // 16 blocks a block of the next one
constexpr qint64 FirstRoom = 4096;
constexpr qint64 LargeBytes = 16 * 1024 * 1024;
constexpr qint64 LargePage = 2 * 1024 * 1024;

int shiftOf(size_t level) { return FirstShift + static_cast<int>(level) * LevelShift; }

// An array of hours has pages of its own, few and large, from their first byte on: so it is read in half the
// time, and grows by moving pages. It returns null when there is no memory, and the old array stays.
#ifdef Q_OS_LINUX
void* mapLarge(void* old, size_t oldBytes, size_t bytes) {
    void* data = oldBytes
                     ? ::mremap(old, oldBytes, bytes, MREMAP_MAYMOVE)
                     : ::mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (data == MAP_FAILED) return nullptr;
    ::madvise(data, bytes, MADV_HUGEPAGE);
    return data;
}
void unmapLarge(void* data, size_t bytes) { ::munmap(data, bytes); }
constexpr bool MapsLarge = true;
#else
void* mapLarge(void*, size_t, size_t) { return nullptr; }
void unmapLarge(void*, size_t) {}
constexpr bool MapsLarge = false;
#endif

}  // namespace

// On copies, which the compiler keeps in registers of eight channels each. With the highest bit turned over
// digits have the order of signed numbers, which every processor compares eight at a time.
void TrendExtremes::add(std::span<const TrendRecord> records) {
    using Row = std::array<qint16, TrendChannelRoom>;
    const auto turned = [](const std::array<quint16, TrendChannelRoom>& digits) {
        Row row;
        for (size_t c = 0; c < row.size(); ++c) row[c] = static_cast<qint16>(digits[c] ^ 0x8000);
        return row;
    };
    Row lowest = turned(low);
    Row highest = turned(high);
    size_t separators = 0;
    for (const TrendRecord& record : records) {
        if (record.isSeparator()) {
            ++separators;
            continue;
        }
        const Row digits = turned(record.Ch);
        for (size_t c = 0; c < digits.size(); ++c) highest[c] = std::max(highest[c], digits[c]);
        for (size_t c = 0; c < digits.size(); ++c) lowest[c] = std::min(lowest[c], digits[c]);
    }
    for (size_t c = 0; c < low.size(); ++c) {
        low[c] = static_cast<quint16>(lowest[c] ^ 0x8000);
        high[c] = static_cast<quint16>(highest[c] ^ 0x8000);
    }
    breaks |= separators > 0;
    any |= separators < records.size();
}

void TrendExtremes::add(const TrendExtremes& other) {
    any |= other.any;
    breaks |= other.breaks;
    for (size_t c = 0; c < low.size(); ++c) {
        low[c] = std::min(low[c], other.low[c]);
        high[c] = std::max(high[c], other.high[c]);
    }
}

void FreeRecords::operator()(TrendRecord* data) const {
    mappedBytes ? unmapLarge(data, mappedBytes) : std::free(data);
}

bool TrendRecords::reserve(qint64 capacity) {
    if (capacity <= m_capacity) return true;
    constexpr qint64 Most = PTRDIFF_MAX / static_cast<qint64>(sizeof(TrendRecord)) - LargePage;
    if (capacity > Most) return false;
    auto bytes = static_cast<size_t>(capacity) * sizeof(TrendRecord);
    const bool large = MapsLarge && static_cast<qint64>(bytes) >= LargeBytes;
    if (large) bytes = (bytes + LargePage - 1) / LargePage * LargePage;
    const size_t mapped = m_data.get_deleter().mappedBytes;
    void* const old = m_data.get();
    void* data = large ? mapLarge(old, mapped, bytes) : std::realloc(old, bytes);
    if (!data) return false;
    if (large && !mapped && m_size > 0)
        std::memcpy(data, old, static_cast<size_t>(m_size) * sizeof(TrendRecord));
    if (large && !mapped) m_data.reset();
    static_cast<void>(m_data.release());
    m_data.get_deleter().mappedBytes = large ? bytes : 0;
    m_data.reset(static_cast<TrendRecord*>(data));
    m_capacity = static_cast<qint64>(bytes / sizeof(TrendRecord));
    return true;
}

bool TrendRecords::makeRoom(qint64 count) {
    if (m_size + count <= m_capacity) return true;
    return reserve(std::max(FirstRoom, (m_size + count) + (m_size + count) / 4));
}

bool TrendRecords::append(const TrendRecord& record) {
    if (!makeRoom(1)) return false;
    m_data.get()[m_size++] = record;
    return true;
}

bool TrendRecords::insert(qint64 at, int count, const TrendRecord& record) {
    if (!makeRoom(count)) return false;
    TrendRecord* place = m_data.get() + at;
    std::memmove(place + count, place, static_cast<size_t>(m_size - at) * sizeof(TrendRecord));
    std::fill_n(place, count, record);
    m_size += count;
    forgetIndexFrom(at);
    return true;
}

TrendRecord* TrendRecords::roomFor(qint64 count) {
    if (!reserve(m_size + count)) return nullptr;
    return m_data.get() + m_size;
}

void TrendRecords::grown(qint64 count) { m_size = std::min(m_size + count, m_capacity); }

void TrendRecords::dropFront(qint64 count) {
    count = std::clamp<qint64>(count, 0, m_size);
    if (count == 0) return;
    std::memmove(m_data.get(), m_data.get() + count,
                 static_cast<size_t>(m_size - count) * sizeof(TrendRecord));
    m_size -= count;
    m_levels.clear();
}

void TrendRecords::clear() {
    m_data.reset();
    m_data.get_deleter().mappedBytes = 0;
    m_size = m_capacity = 0;
    m_levels.clear();
}

void TrendRecords::forgetIndexFrom(qint64 record) const {
    for (size_t level = 0; level < m_levels.size(); ++level) {
        const auto whole = static_cast<size_t>(record >> shiftOf(level));
        if (m_levels[level].size() > whole) m_levels[level].resize(whole);
    }
}

void TrendRecords::indexNewBlocks() const {
    if (m_levels.empty()) m_levels.emplace_back();
    const auto whole = static_cast<size_t>(m_size >> FirstShift);
    if (whole > 2 * m_levels[0].size()) m_levels[0].reserve(whole);  // of a load, not of a recording
    for (size_t block = m_levels[0].size(); block < whole; ++block) {
        TrendExtremes extremes;
        extremes.add(all().subspan(block << FirstShift, size_t(1) << FirstShift));
        m_levels[0].push_back(extremes);
    }
    for (size_t level = 1; m_levels[level - 1].size() >> LevelShift; ++level) {
        if (m_levels.size() == level) m_levels.emplace_back();
        const auto& below = m_levels[level - 1];
        auto& here = m_levels[level];
        while (here.size() < below.size() >> LevelShift) {
            TrendExtremes extremes;
            const size_t first = here.size() << LevelShift;
            for (size_t i = first; i < first + (1u << LevelShift); ++i) extremes.add(below[i]);
            here.push_back(extremes);
        }
    }
}

TrendExtremes TrendRecords::extremes(qint64 from, qint64 to) const {
    indexNewBlocks();
    TrendExtremes extremes;
    from = std::max<qint64>(from, 0);
    to = std::min(to, m_size);
    while (from < to) {
        // The largest whole block that begins here and ends within the range.
        qsizetype level = -1;
        for (size_t next = 0; next < m_levels.size(); ++next) {
            const qint64 block = qint64(1) << shiftOf(next);
            if (from % block != 0 || from + block > to) break;
            if (static_cast<size_t>(from >> shiftOf(next)) >= m_levels[next].size()) break;
            level = static_cast<qsizetype>(next);
        }
        if (level < 0) {
            // Singly up to where the next block begins.
            const qint64 end = std::min(to, ((from >> FirstShift) + 1) << FirstShift);
            extremes.add(all().subspan(static_cast<size_t>(from), static_cast<size_t>(end - from)));
            from = end;
        } else {
            const int shift = shiftOf(static_cast<size_t>(level));
            extremes.add(m_levels[static_cast<size_t>(level)][static_cast<size_t>(from >> shift)]);
            from += qint64(1) << shift;
        }
    }
    return extremes;
}

qint64 TrendRecords::nearestSample(qint64 at, qint64 reach) const {
    for (qint64 away = 0; away <= reach; ++away) {
        for (const qint64 place : {at - away, at + away})
            if (place >= 0 && place < m_size && !(*this)[place].isSeparator()) return place;
    }
    return -1;
}

qint64 TrendRecords::bytesHeld() const {
    qint64 bytes = m_capacity * static_cast<qint64>(sizeof(TrendRecord));
    for (const auto& level : m_levels) bytes += static_cast<qint64>(level.capacity() * sizeof(TrendExtremes));
    return bytes;
}

}  // namespace kelvane

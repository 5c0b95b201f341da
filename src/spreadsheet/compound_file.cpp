#include "spreadsheet/compound_file.h"

#include <algorithm>
#include <vector>

#include "spreadsheet/little_endian.h"

namespace kelvane {

namespace {

const QByteArray Signature = QByteArray::fromHex("D0CF11E0A1B11AE1");
constexpr quint32 LastRegularSector = 0xFFFFFFFA;  // numbers above are marks
constexpr quint32 DifatSector = 0xFFFFFFFC;
constexpr quint32 FatSector = 0xFFFFFFFD;
constexpr quint32 EndOfChain = 0xFFFFFFFE;
constexpr quint32 FreeSector = 0xFFFFFFFF;
constexpr std::size_t HeaderSize = 512;
constexpr std::size_t HeaderFatPlaces = 109;
constexpr std::size_t EntrySize = 128;
constexpr quint32 MiniStreamLimit = 4096;

StreamResult damaged(const QString& what) {
    return {false, QStringLiteral("the file is damaged (%1)").arg(what), {}, {}};
}

struct DirectoryEntry {
    QString name;
    quint8 type = 0;  // 0 unused, 1 storage, 2 stream, 5 root
    quint32 left = FreeSector, right = FreeSector, child = FreeSector;
    quint32 firstSector = EndOfChain;
    quint64 size = 0;
};

class CompoundReader {
   public:
    explicit CompoundReader(const QByteArray& file) : m_file(file) {}

    StreamResult read(const QStringList& wanted) {
        if (!readHeader() || !readFat()) return damaged(QStringLiteral("its sector table"));
        if (!readDirectory()) return damaged(QStringLiteral("its directory"));
        for (const QString& name : wanted)
            if (const DirectoryEntry* entry = findInRoot(name)) return content(*entry, name);
        return {false, QStringLiteral("there is no workbook in the file"), {}, {}};
    }

   private:
    std::size_t sectorSize() const { return std::size_t(1) << m_sectorShift; }
    // Version 4 keeps its header in a sector of its own, so sector n always begins at (n + 1) sectors.
    std::size_t sectorAt(quint32 sector) const { return (std::size_t(sector) + 1) << m_sectorShift; }
    std::size_t sectorCount() const { return m_file.size() >> m_sectorShift; }

    bool readHeader() {
        m_sectorShift = m_file.u16(30);
        const bool known = m_sectorShift == 9 || m_sectorShift == 12;
        return m_file.size() >= HeaderSize && known && m_file.u16(32) == 6 && m_file.u16(28) == 0xFFFE;
    }

    bool addFatSector(quint32 sector) {
        if (sector == FreeSector) return true;
        if (sector > LastRegularSector || !m_file.has(sectorAt(sector), sectorSize())) return false;
        if (m_fat.size() > 4 * sectorCount() + 4096) return false;  // the same sector over and over
        for (std::size_t i = 0; i < sectorSize(); i += 4) m_fat.push_back(m_file.u32(sectorAt(sector) + i));
        return true;
    }

    bool readFat() {
        for (std::size_t i = 0; i < HeaderFatPlaces; ++i)
            if (!addFatSector(m_file.u32(76 + 4 * i))) return false;
        const std::size_t perSector = sectorSize() / 4 - 1;
        quint32 sector = m_file.u32(68);
        for (std::size_t steps = 0; sector <= LastRegularSector; ++steps) {
            if (steps > sectorCount() || !m_file.has(sectorAt(sector), sectorSize())) return false;
            for (std::size_t i = 0; i < perSector; ++i)
                if (!addFatSector(m_file.u32(sectorAt(sector) + 4 * i))) return false;
            sector = m_file.u32(sectorAt(sector) + 4 * perSector);
        }
        return true;
    }

    // The first sectors of a chain, at most so many; false if it leaves the table or comes back to itself.
    static bool follow(const std::vector<quint32>& table, quint32 first, std::size_t most,
                       std::vector<quint32>& chain) {
        std::vector<bool> seen(table.size());
        for (quint32 sector = first; sector <= LastRegularSector && chain.size() < most;
             sector = table[sector]) {
            if (sector >= table.size() || seen[sector]) return false;
            seen[sector] = true;
            chain.push_back(sector);
        }
        return true;
    }

    // Exactly `size` bytes of a chain, or all whole sectors of it when size is not known (-1).
    bool readChain(quint32 first, qint64 size, QByteArray& bytes) const {
        if (size > static_cast<qint64>(m_file.size())) return false;
        const std::size_t most =
            size < 0 ? m_fat.size() + 1 : (std::size_t(size) + sectorSize() - 1) >> m_sectorShift;
        std::vector<quint32> chain;
        if (!follow(m_fat, first, most, chain) || (size >= 0 && chain.size() < most)) return false;
        std::size_t left = size < 0 ? chain.size() << m_sectorShift : std::size_t(size);
        if (left > m_file.size()) return false;
        for (quint32 sector : chain) {
            const std::size_t length = std::min(left, sectorSize());
            if (!m_file.has(sectorAt(sector), length)) return false;
            bytes.append(m_file.data() + sectorAt(sector), static_cast<qsizetype>(length));
            left -= length;
        }
        return true;
    }

    bool readDirectory() {
        QByteArray bytes;
        if (!readChain(m_file.u32(48), -1, bytes)) return false;
        const ByteView view(bytes);
        for (std::size_t at = 0; view.has(at, EntrySize); at += EntrySize)
            m_entries.push_back(entryOf(view.part(at, EntrySize)));
        return !m_entries.empty() && m_entries[0].type == 5;
    }

    DirectoryEntry entryOf(ByteView bytes) const {
        DirectoryEntry entry;
        const std::size_t nameBytes = std::min<std::size_t>(bytes.u16(64), 64);
        for (std::size_t i = 0; i + 2 < nameBytes; i += 2) entry.name.append(QChar(bytes.u16(i)));
        entry.type = bytes.u8(66);
        entry.left = bytes.u32(68);
        entry.right = bytes.u32(72);
        entry.child = bytes.u32(76);
        entry.firstSector = bytes.u32(116);
        entry.size = bytes.u32(120);
        if (m_sectorShift != 9)
            entry.size |= quint64(bytes.u32(124)) << 32;  // version 3 leaves these undefined
        return entry;
    }

    const DirectoryEntry* findInRoot(const QString& name) const {
        std::vector<bool> seen(m_entries.size());
        std::vector<quint32> open{m_entries[0].child};
        while (!open.empty()) {
            const quint32 number = open.back();
            open.pop_back();
            if (number >= m_entries.size() || seen[number]) continue;
            seen[number] = true;
            const DirectoryEntry& entry = m_entries[number];
            if (entry.type == 2 && entry.name.compare(name, Qt::CaseInsensitive) == 0) return &entry;
            open.push_back(entry.left);
            open.push_back(entry.right);
        }
        return nullptr;
    }

    StreamResult content(const DirectoryEntry& entry, const QString& name) const {
        StreamResult result{true, {}, name, {}};
        if (entry.size > m_file.size()) return damaged(QStringLiteral("it is cut short"));
        const bool mini = entry.size < MiniStreamLimit;
        const bool whole = mini ? readMiniChain(entry, result.bytes)
                                : readChain(entry.firstSector, static_cast<qint64>(entry.size), result.bytes);
        return whole ? result : damaged(QStringLiteral("it is cut short"));
    }

    // A small stream lies in sectors of 64 bytes inside the root's stream.
    bool readMiniChain(const DirectoryEntry& entry, QByteArray& bytes) const {
        QByteArray miniFatBytes, miniStream;
        if (m_entries[0].size > m_file.size() || !readChain(m_file.u32(60), -1, miniFatBytes)) return false;
        if (!readChain(m_entries[0].firstSector, static_cast<qint64>(m_entries[0].size), miniStream))
            return false;
        const ByteView miniFatView(miniFatBytes), stream(miniStream);
        std::vector<quint32> miniFat;
        for (std::size_t at = 0; miniFatView.has(at, 4); at += 4) miniFat.push_back(miniFatView.u32(at));
        const std::size_t most = (std::size_t(entry.size) + 63) / 64;
        std::vector<quint32> chain;
        if (!follow(miniFat, entry.firstSector, most, chain) || chain.size() < most) return false;
        std::size_t left = std::size_t(entry.size);
        for (quint32 sector : chain) {
            const std::size_t length = std::min<std::size_t>(left, 64);
            if (!stream.has(std::size_t(sector) * 64, length)) return false;
            bytes.append(stream.data() + std::size_t(sector) * 64, static_cast<qsizetype>(length));
            left -= length;
        }
        return true;
    }

    ByteView m_file;
    unsigned m_sectorShift = 9;
    std::vector<quint32> m_fat;
    std::vector<DirectoryEntry> m_entries;
};

// How many sectors of each kind a new file needs: the table must also have room for itself.
struct Layout {
    quint32 stream = 0, fat = 0, difat = 0;
    quint32 directoryAt() const { return stream; }
    quint32 difatAt() const { return stream + 1; }
    quint32 fatAt() const { return difatAt() + difat; }
    quint32 total() const { return fatAt() + fat; }
};

constexpr quint32 Sector = 512;
constexpr quint32 NumbersPerSector = Sector / 4;

Layout layoutFor(quint32 streamSectors) {
    Layout layout{.stream = streamSectors, .fat = 1, .difat = 0};
    while (layout.fat * NumbersPerSector < layout.total()) {
        ++layout.fat;
        if (layout.fat > HeaderFatPlaces)
            layout.difat =
                (layout.fat - quint32(HeaderFatPlaces) + NumbersPerSector - 2) / (NumbersPerSector - 1);
    }
    return layout;
}

void appendHeader(QByteArray& out, const Layout& layout) {
    out.append(Signature);
    out.append(16, '\0');
    for (quint32 number : {0x3Eu, 3u, 0xFFFEu, 9u, 6u})
        appendU16(out, number);  // versions, order, sector sizes
    out.append(6, '\0');
    for (quint32 number : {0u, layout.fat, layout.directoryAt(), 0u, MiniStreamLimit, EndOfChain, 0u,
                           layout.difat != 0 ? layout.difatAt() : EndOfChain, layout.difat})
        appendU32(out, number);
    for (quint32 i = 0; i < HeaderFatPlaces; ++i)
        appendU32(out, i < layout.fat ? layout.fatAt() + i : FreeSector);
}

void appendEntry(QByteArray& out, const DirectoryEntry& entry, const QByteArray& classId) {
    for (int i = 0; i < 32; ++i) appendU16(out, i < entry.name.size() ? entry.name[i].unicode() : 0u);
    appendU16(out, entry.type == 0 ? 0u : quint32(entry.name.size() + 1) * 2);
    appendU8(out, entry.type);
    appendU8(out, 1);  // black
    for (quint32 number : {entry.left, entry.right, entry.child}) appendU32(out, number);
    out.append(classId);
    out.append(36 - classId.size(), '\0');  // state and times
    appendU32(out, entry.firstSector);
    appendU32(out, quint32(entry.size));
    appendU32(out, 0);
}

void appendDirectory(QByteArray& out, const QString& streamName, quint32 streamSize) {
    const QByteArray workbookClass = QByteArray::fromHex("2008020000000000C000000000000046");
    DirectoryEntry root, stream, unused;
    root.name = QStringLiteral("Root Entry");
    root.type = 5;
    root.child = 1;
    stream.name = streamName;
    stream.type = 2;
    stream.firstSector = 0;
    stream.size = streamSize;
    unused.firstSector = 0;
    appendEntry(out, root, workbookClass);
    for (const DirectoryEntry& entry : {stream, unused, unused}) appendEntry(out, entry, {});
}

void appendDifat(QByteArray& out, const Layout& layout) {
    quint32 next = quint32(HeaderFatPlaces);
    for (quint32 sector = 0; sector < layout.difat; ++sector) {
        for (quint32 i = 0; i + 1 < NumbersPerSector; ++i, ++next)
            appendU32(out, next < layout.fat ? layout.fatAt() + next : FreeSector);
        appendU32(out, sector + 1 < layout.difat ? layout.difatAt() + sector + 1 : EndOfChain);
    }
}

void appendFat(QByteArray& out, const Layout& layout) {
    for (quint32 i = 1; i < layout.stream; ++i) appendU32(out, i);
    appendU32(out, EndOfChain);
    appendU32(out, EndOfChain);  // the directory
    for (quint32 i = 0; i < layout.difat; ++i) appendU32(out, DifatSector);
    for (quint32 i = 0; i < layout.fat; ++i) appendU32(out, FatSector);
    for (quint32 i = layout.total(); i < layout.fat * NumbersPerSector; ++i) appendU32(out, FreeSector);
}

}  // namespace

bool looksLikeCompoundFile(const QByteArray& file) { return file.startsWith(Signature); }

StreamResult readCompoundStream(const QByteArray& file, const QStringList& wanted) {
    if (!looksLikeCompoundFile(file)) return {false, QStringLiteral("the file is no workbook"), {}, {}};
    return CompoundReader(file).read(wanted);
}

StreamResult writeCompoundFile(const QString& streamName, const QByteArray& stream) {
    constexpr qsizetype MostBytes = qsizetype(1) << 30;
    if (stream.size() > MostBytes) return {false, QStringLiteral("the workbook is too large"), {}, {}};
    const quint32 size = std::max(quint32(stream.size()), MiniStreamLimit);
    const Layout layout = layoutFor((size + Sector - 1) / Sector);
    StreamResult result{true, {}, streamName, {}};
    QByteArray& out = result.bytes;
    out.reserve(qsizetype(layout.total() + 1) * Sector);
    appendHeader(out, layout);
    out.append(stream);
    out.append(qsizetype(layout.stream) * Sector - stream.size(), '\0');
    appendDirectory(out, streamName, size);
    appendDifat(out, layout);
    appendFat(out, layout);
    return result;
}

}  // namespace kelvane

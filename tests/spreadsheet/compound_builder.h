// Compound files and workbook records put together by hand, the way office programs lay them out and our
// writer does not: mini streams, scattered sectors, storages, records of every kind of cell.
#pragma once

#include <algorithm>
#include <numeric>
#include <vector>

#include "spreadsheet/little_endian.h"

namespace kelvane {

inline QByteArray words(std::initializer_list<quint32> values) {
    QByteArray out;
    for (quint32 value : values) appendU16(out, value);
    return out;
}

inline QByteArray record(quint32 kind, const QByteArray& body) {
    return words({kind, quint32(body.size())}) + body;
}

inline QByteArray number(double value) { return QByteArray(reinterpret_cast<const char*>(&value), 8); }

struct CompoundBuilder {
    QByteArray streamName = "Workbook";
    bool mini = false;       // in sectors of 64 bytes inside the root's stream
    bool scattered = false;  // sectors in the file from last to first
    int sectorShift = 9;
    quint32 circleAt = 0;  // when not 0, this sector leads back to the first

    QByteArray build(QByteArray stream) const {
        const int sector = 1 << sectorShift;
        const quint32 end = 0xFFFFFFFE, none = 0xFFFFFFFF;
        const quint32 size = quint32(stream.size());
        const quint32 minis = (size + 63) / 64;
        stream.append((sector - stream.size() % sector) % sector, '\0');
        const quint32 count = quint32(stream.size() / sector);
        // Sectors: 0 directory, 1 mini table, then the stream; the sector table is last.
        std::vector<quint32> places(count);
        std::iota(places.begin(), places.end(), 2);
        if (scattered) std::reverse(places.begin(), places.end());
        std::vector<quint32> fat(std::size_t(sector) / 4, none);
        fat[0] = fat[1] = end;
        QByteArray content(stream.size(), '\0');
        for (quint32 i = 0; i < count; ++i) {
            fat[places[i]] = i + 1 < count ? places[i + 1] : end;
            content.replace(qsizetype(places[i] - 2) * sector, sector,
                            stream.mid(qsizetype(i) * sector, sector));
        }
        if (circleAt != 0) fat[places[circleAt]] = places[0];
        fat[count + 2] = 0xFFFFFFFD;

        QByteArray out = QByteArray::fromHex("D0CF11E0A1B11AE1") + QByteArray(16, '\0') +
                         words({0x3E, sectorShift == 9 ? 3u : 4u, 0xFFFE, quint32(sectorShift), 6, 0, 0, 0});
        for (quint32 value : {0u, 1u, 0u, 0u, 4096u, mini ? 1u : end, mini ? 1u : 0u, end, 0u, count + 2})
            appendU32(out, value);
        out.append(sector - out.size(), '\xFF');
        if (sectorShift != 9) out.replace(512, sector - 512, QByteArray(sector - 512, '\0'));
        QByteArray directory =
            entry("Root Entry", 5, none, none, 1, mini ? places[0] : end, mini ? size : 0) +
            entry("Annex", 1, none, 2, none, 0, 0) +
            entry(streamName, 2, none, none, none, mini ? 0 : places[0], size);
        out += directory.leftJustified(sector, '\0');
        for (quint32 i = 0; i < quint32(sector) / 4; ++i)
            appendU32(out, i + 1 < minis ? i + 1 : i + 1 == minis ? end : none);
        out += content;
        for (quint32 value : fat) appendU32(out, value);
        return out;
    }

   private:
    static QByteArray entry(const QByteArray& name, int type, quint32 left, quint32 right, quint32 child,
                            quint32 first, quint32 size) {
        QByteArray out;
        for (char c : name) appendU16(out, quint32(c));
        out = out.leftJustified(64, '\0');
        out += words({quint32(name.size() + 1) * 2, 0x0100u | quint32(type)});
        for (quint32 value : {left, right, child}) appendU32(out, value);
        out.append(36, '\0');
        for (quint32 value : {first, size, 0u}) appendU32(out, value);
        return out;
    }
};

// A workbook stream of one sheet "S": extra globals (fonts, formats, texts) and the sheet's records.
inline QByteArray workbookOf(const QByteArray& globals, const QByteArray& sheetRecords,
                             quint32 version = 0x0600) {
    QByteArray head = record(0x0809, words({version, 5, 0, 0, 0, 0, 0, 0})) + globals;
    const QByteArray end = record(0x000A, {});
    QByteArray place;
    appendU32(place, quint32(head.size() + 4 + 9 + end.size()));
    head += record(0x0085, place + words({0}) + QByteArray::fromHex("010053")) + end;
    QByteArray padded = head + record(0x0809, words({version, 0x10, 0, 0, 0, 0, 0, 0})) + sheetRecords + end;
    return padded;
}

// 4096 bytes and more lie in normal sectors.
inline QByteArray atLeast4096(const QByteArray& stream) {
    return stream + QByteArray(std::max<qsizetype>(0, 4096 - stream.size()), '\0');
}

}  // namespace kelvane

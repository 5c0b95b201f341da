// The outer form of an .xls file: a compound file, that is a small file system of sectors in one file,
// version 3 and 4 as published by its maker. biff_writer packs its one stream into it, biff_reader takes it
// out again.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace kelvane {

struct StreamResult {
    bool ok = true;
    QString error;  // plain words
    QString name;   // which of the wanted streams was found
    QByteArray bytes;
};

bool looksLikeCompoundFile(const QByteArray& file);

// The first of the wanted streams that stands in the root of the file (case does not matter). Takes normal
// and mini streams in any order of sectors; every chain is bounded by the file itself.
StreamResult readCompoundStream(const QByteArray& file, const QStringList& wanted);

// A file with one stream in its root; a short stream is filled up with zeros to 4096 bytes. At most 1 GB.
StreamResult writeCompoundFile(const QString& streamName, const QByteArray& stream);

}  // namespace kelvane

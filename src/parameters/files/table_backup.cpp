#include "parameters/files/table_backup.h"

#include <QDir>

#include "parameters/files/table_text_file.h"

namespace kelvane {

namespace {

const auto Pattern = QStringLiteral("[0-9][0-9][0-9][0-9]-[0-9][0-9]-[0-9][0-9]_*.txt");

// The table with the values that the drive held.
void copyAsRead(const ParameterTable& from, ParameterTable& to,
                const std::function<std::optional<QString>(int)>& readValue) {
    to.identity = from.identity;
    to.grid.setRowCount(from.grid.RowCount());
    for (int row = 1; row < from.grid.RowCount(); ++row) {
        for (int c = column::PrNo; c < TableColumns; ++c) to.grid.setCell(c, row, from.grid.cell(c, row));
        if (isGroupRow(from.grid, row)) continue;
        to.grid.addCheckBox(row, false);
        if (const std::optional<QString> read = readValue(row)) to.grid.setCell(column::Data, row, *read);
    }
}

QString fileWord(const QString& model) {
    QString word;
    for (const QChar c : model) word += c.isLetterOrNumber() ? c : QLatin1Char('_');
    return word.isEmpty() ? QStringLiteral("drive") : word;
}

}  // namespace

FileResult TableBackup::write(const ParameterTable& drive, bool RparaAbLED, const QDateTime& now,
                              const std::function<std::optional<QString>(int)>& readValue) {
    if (!QDir().mkpath(m_folder))
        return {false, QStringLiteral("The folder %1 cannot be made.").arg(m_folder)};
    ParameterTable asRead;
    copyAsRead(drive, asRead, readValue);
    m_path = freeName(fileWord(drive.identity.model), now);
    const FileResult written = writeWhole(m_path, writeTableText(asRead, RparaAbLED, TextFormat::Txt));
    if (written.ok) dropOldest();
    return written;
}

QString TableBackup::freeName(const QString& model, const QDateTime& now) const {
    const QString stem = m_folder + u'/' + now.toString(QStringLiteral("yyyy-MM-dd_HH-mm-ss")) + u'_' + model;
    QString name = stem + QStringLiteral(".txt");
    for (int i = 2; QFile::exists(name); ++i) name = QStringLiteral("%1_%2.txt").arg(stem).arg(i);
    return name;
}

// Names begin with the date, so their order is that of time.
void TableBackup::dropOldest() const {
    QDir folder(m_folder);
    QStringList files = folder.entryList({Pattern}, QDir::Files, QDir::Name);
    while (files.size() > Kept) folder.remove(files.takeFirst());
}

}  // namespace kelvane

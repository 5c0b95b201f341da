#include "parameters/files/table_copies.h"

#include <QDir>

#include "parameters/files/table_text_file.h"

namespace kelvane {

namespace {

const auto Pattern = QStringLiteral("[0-9][0-9][0-9][0-9]-[0-9][0-9]-[0-9][0-9]_*.txt");

QString fileWord(const QString& model) {
    QString word;
    for (const QChar c : model) word += c.isLetterOrNumber() ? c : QLatin1Char('_');
    return word.isEmpty() ? QStringLiteral("drive") : word;
}

}  // namespace

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

FileResult TableCopies::write(const ParameterTable& table, bool RparaAbLED, const QDateTime& now) {
    if (!QDir().mkpath(m_folder))
        return {false, QStringLiteral("The folder %1 cannot be made.").arg(m_folder)};
    m_path = freeName(fileWord(table.identity.model), now);
    FileResult written = writeWhole(m_path, writeTableText(table, RparaAbLED, TextFormat::Txt));
    if (written.ok) dropOldest();
    return written;
}

// Names begin with the date, so their order is that of time.
QStringList TableCopies::files() const {
    return m_folder.isEmpty() ? QStringList() : QDir(m_folder).entryList({Pattern}, QDir::Files, QDir::Name);
}

QString TableCopies::newest() const {
    const QStringList all = files();
    return all.isEmpty() ? QString() : m_folder + u'/' + all.last();
}

QString TableCopies::freeName(const QString& model, const QDateTime& now) const {
    const QString stem = m_folder + u'/' + now.toString(QStringLiteral("yyyy-MM-dd_HH-mm-ss")) + u'_' + model;
    QString name = stem + QStringLiteral(".txt");
    for (int i = 2; QFile::exists(name); ++i) name = QStringLiteral("%1_%2.txt").arg(stem).arg(i);
    return name;
}

void TableCopies::dropOldest() const {
    QStringList all = files();
    while (all.size() > m_kept) QDir(m_folder).remove(all.takeFirst());
}

}  // namespace kelvane

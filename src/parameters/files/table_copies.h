// A folder of dated copies of tables, each a .txt that Read File loads; the oldest go when there are too
// many. "backup" holds what a drive held before the first write to it, "unwritten edits" what was edited and
// neither written nor saved when the Parameter window closed. Owned by the session.
#pragma once

#include <QDateTime>
#include <QString>
#include <functional>
#include <optional>

#include "base/whole_file.h"
#include "parameters/table/parameter_table.h"

namespace kelvane {

class TableCopies {
   public:
    // Without a folder nothing is kept.
    TableCopies(QString folder, int kept) : m_folder(std::move(folder)), m_kept(kept) {}
    const QString& folder() const { return m_folder; }

    // Errors: the folder cannot be made, the file cannot be written. path() names the file afterwards.
    FileResult write(const ParameterTable& table, bool RparaAbLED, const QDateTime& now);
    const QString& path() const { return m_path; }
    // Full path of the latest copy; empty without one.
    QString newest() const;

   private:
    QStringList files() const;
    QString freeName(const QString& model, const QDateTime& now) const;
    void dropOldest() const;

    QString m_folder;
    QString m_path;
    int m_kept;
};

// The table with the values that the drive gave, whatever was edited since, and no box set. readValue gives
// the value text of a row as it was read.
void copyAsRead(const ParameterTable& from, ParameterTable& to,
                const std::function<std::optional<QString>(int row)>& readValue);

}  // namespace kelvane

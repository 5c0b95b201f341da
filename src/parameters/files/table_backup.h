// Backup of the drive's table before the first write of a session: a dated .txt that Read File loads, in the
// folder "backup" of the program's folder. It holds the values as they were read, not as they were edited.
// The last twenty are kept. The Parameter window calls it; a failure never stops a write.
#pragma once

#include <QDateTime>
#include <QString>
#include <functional>
#include <optional>

#include "base/whole_file.h"
#include "parameters/table/parameter_table.h"

namespace kelvane {

class TableBackup {
   public:
    static constexpr int Kept = 20;

    explicit TableBackup(const QString& programFolder)
        : m_folder(programFolder + QStringLiteral("/backup")) {}
    const QString& folder() const { return m_folder; }

    // readValue gives the value text of a row as it was read. Errors: the folder cannot be made, the
    // file cannot be written. path() names the file afterwards.
    FileResult write(const ParameterTable& drive, bool RparaAbLED, const QDateTime& now,
                     const std::function<std::optional<QString>(int row)>& readValue);
    const QString& path() const { return m_path; }

   private:
    QString freeName(const QString& model, const QDateTime& now) const;
    void dropOldest() const;

    QString m_folder;
    QString m_path;
};

}  // namespace kelvane

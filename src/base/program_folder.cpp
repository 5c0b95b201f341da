#include "base/program_folder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryFile>

namespace kelvane {

namespace {

// Where the system keeps its programs there is no place for their data, even if an administrator could write
// it.
bool belongsToSystem(const QString& folder) { return folder.startsWith(QLatin1String("/usr/")); }

bool canWrite(const QString& folder) {
    QTemporaryFile trial(QDir(folder).filePath(QStringLiteral(".kelvane-XXXXXX")));
    return trial.open();
}

}  // namespace

ProgramFolder ProgramFolder::decide(const QString& executableFolder, const QString& userFolder) {
    ProgramFolder result;
    if (!belongsToSystem(executableFolder) && canWrite(executableFolder)) {
        result.m_path = executableFolder;
    } else if (!userFolder.isEmpty() && QDir().mkpath(userFolder) && canWrite(userFolder)) {
        result.m_path = userFolder;
    } else {
        // What stands beside the program is still read; every write ends with its reason.
        result.m_path = executableFolder;
        result.m_error = QStringLiteral("Settings cannot be kept: neither %1 nor %2 can be written.")
                             .arg(executableFolder, userFolder);
    }
    result.m_dataFolders << result.m_path << executableFolder
                         << QDir::cleanPath(executableFolder % QStringLiteral("/../share/kelvane"));
    result.m_dataFolders.removeDuplicates();
    return result;
}

ProgramFolder ProgramFolder::ofApplication() {
    return decide(QCoreApplication::applicationDirPath(),
                  QStandardPaths::writableLocation(QStandardPaths::AppDataLocation));
}

QString ProgramFolder::file(const QString& name) const { return QDir(m_path).filePath(name); }

QString ProgramFolder::findData(const QString& name) const {
    for (const QString& folder : m_dataFolders) {
        QString path = QDir(folder).filePath(name);
        if (QFileInfo::exists(path)) return path;
    }
    return {};
}

}  // namespace kelvane

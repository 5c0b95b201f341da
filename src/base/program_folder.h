// Where the program's files lie: project, serial_ports.txt and language files that a person changes, and the
// read-only data that was installed with it. Decided once at start by the shell.
#pragma once

#include <QString>
#include <QStringList>

namespace kelvane {

class ProgramFolder {
   public:
    // The folder of the executable when files can be made there and it does not lie in /usr, else the user's
    // folder, which is made.
    // A trial file decides: permission bits say little on network drives and for administrators.
    static ProgramFolder decide(const QString& executableFolder, const QString& userFolder);
    // From the running application, whose name must be set.
    static ProgramFolder ofApplication();

    // The executable's when neither folder can be written; error() then says so in plain words.
    const QString& path() const { return m_path; }
    const QString& error() const { return m_error; }

    // Full path of a file of the program's folder, whether it exists or not.
    QString file(const QString& name) const;
    // First of program's folder, executable's folder and ../share/kelvane that has name; empty when none has.
    QString findData(const QString& name) const;

   private:
    QString m_path;
    QString m_error;
    QStringList m_dataFolders;
};

}  // namespace kelvane

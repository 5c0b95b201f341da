#include "shell/document_viewer.h"

#include <QDesktopServices>
#include <QFile>
#include <QStandardPaths>
#include <QUrl>

namespace kelvane {

namespace {

// Programs named for PDF in a list of the desktop's associations ("application/pdf=a.desktop;b.desktop;").
// Source: freedesktop.org, "Association between MIME types and applications".
QStringList named(const QString& path) {
    QFile file(path);
    QStringList found;
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) return found;
    bool removed = false;
    for (const QString& line : QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'))) {
        if (line.startsWith(QLatin1Char('['))) removed = line.startsWith(QLatin1String("[Removed"));
        if (!removed && line.startsWith(QLatin1String("application/pdf=")))
            found += line.section(QLatin1Char('='), 1).split(QLatin1Char(';'), Qt::SkipEmptyParts);
    }
    return found;
}

// An association may outlive the program.
bool isInstalled(const QString& program) {
    return !QStandardPaths::locate(QStandardPaths::ApplicationsLocation, program.trimmed()).isEmpty();
}

QStringList pdfViewers() {
    using Paths = QStandardPaths;
    QStringList lists = Paths::locateAll(Paths::GenericConfigLocation, QStringLiteral("mimeapps.list"));
    for (const char* name : {"mimeapps.list", "defaults.list", "mimeinfo.cache"})
        lists += Paths::locateAll(Paths::ApplicationsLocation, QLatin1String(name));
    QStringList viewers;
    for (const QString& list : lists)
        for (const QString& program : named(list))
            if (isInstalled(program) && !viewers.contains(program)) viewers << program;
    return viewers;
}

}  // namespace

DocumentViewer desktopViewer() {
    return {.pdfViewers = pdfViewers,
            .open = [](const QString& path) { QDesktopServices::openUrl(QUrl::fromLocalFile(path)); }};
}

}  // namespace kelvane

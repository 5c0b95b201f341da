#include "shell/manuals.h"

#include <array>

namespace kelvane {

namespace {

// Three letters here, other than in the names of language files.
constexpr std::array<const char*, ManualCount> Codes{"CHT", "CHS", "Deu", "Eng", "Fre",
                                                     "Jap", "Kor", "Por", "Rus", "Spa"};

QStringList viewersOf(const DocumentViewer& viewer) {
    return viewer.pdfViewers ? viewer.pdfViewers() : QStringList();
}

}  // namespace

QString manualFile(int number) {
    if (number < 1 || number > ManualCount) return {};
    return QStringLiteral("user manual/Kelvane_%1.pdf")
        .arg(QLatin1String(Codes[static_cast<size_t>(number - 1)]));
}

bool pdfViewerInstalled(const DocumentViewer& viewer) { return viewer.open && !viewersOf(viewer).isEmpty(); }

QStringList viewerLines(const DocumentViewer& viewer) {
    QStringList lines;
    for (const QString& name : viewersOf(viewer))
        lines << QStringLiteral("%1 %2").arg(name).arg(name.indexOf(QLatin1String("Acrobat")) + 1);
    return lines;
}

}  // namespace kelvane

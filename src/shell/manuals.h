// The software manuals: which file each item of the menu stands for, and whether anything can show it. The
// desktop is known only through DocumentViewer.
#pragma once

#include <QStringList>
#include <functional>

namespace kelvane {

inline constexpr int ManualCount = 10;

// What the desktop offers for documents; without functions nothing is installed.
struct DocumentViewer {
    std::function<QStringList()> pdfViewers;  // names of the programs that show PDF, the preferred first
    std::function<void(const QString& path)> open;  // with the preferred one; failures are silent
};

// "user manual/Kelvane_Eng.pdf" for 4; empty outside 1 to 10.
QString manualFile(int number);
bool pdfViewerInstalled(const DocumentViewer& viewer);
// Each viewer's name with the place of "Acrobat" in it, from 1; 0: it is not in it.
QStringList viewerLines(const DocumentViewer& viewer);

}  // namespace kelvane

// kelvane-manual FOLDER [PICTURES]: writes Kelvane_Eng.pdf and its translations into FOLDER, with the tour's
// pictures. Exit code 1 when one cannot be written.
#include <QApplication>
#include <cstdio>

#include "manual/manual_pages.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    const QStringList arguments = QApplication::arguments();
    for (const QString& code : kelvane::ManualText::languages()) {
        const auto manual = kelvane::ManualText::of(code);
        if (manual.chapters().empty()) continue;
        const QString path =
            QStringLiteral("%1/Kelvane_%2.pdf").arg(arguments.value(1, QStringLiteral(".")), code);
        const kelvane::FileResult written = kelvane::writeManualPdf(manual, arguments.value(2), path);
        if (!written.ok) {
            std::fputs(qUtf8Printable(written.error + QLatin1Char('\n')), stderr);
            return 1;
        }
        std::puts(qPrintable(path));
    }
    return 0;
}

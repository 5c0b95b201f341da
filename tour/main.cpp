// kelvane-tour [FOLDER] [--family NAME]: walks through the real windows over a practice drive and keeps
// pictures and files in FOLDER ("results" when none is named). Exit code 0 when every step held, 1 when one
// failed, 2 for arguments that mean nothing.
#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <algorithm>
#include <cstdio>

#include "base/whole_file.h"
#include "tour/walk.h"
#include "ui/icons.h"
#include "ui/tool_style.h"

namespace {

using namespace kelvane;
using namespace kelvane::tour;

std::optional<Family> familyNamed(const QString& name) {
    for (const Family family : AllFamilies)
        if (name.compare(QLatin1String(familyName(family)), Qt::CaseInsensitive) == 0) return family;
    return std::nullopt;
}

int complain(const QString& text) {
    std::fputs(qUtf8Printable(text + QLatin1Char('\n')), stderr);
    return 2;
}

QString subfolder(const QString& folder, const QString& name) {
    const QString path = QDir(folder).absoluteFilePath(name);
    return QDir().mkpath(path) ? path : QString();
}

bool copyLanguageFiles(const QString& program) {
    const auto name = QStringLiteral("Language file");
    const QDir from(QDir(QCoreApplication::applicationDirPath()).filePath(name));
    const QDir to(subfolder(program, name));
    const QStringList files = from.entryList(QDir::Files);
    return !files.isEmpty() && std::all_of(files.begin(), files.end(), [&](const QString& file) {
        const FileContent content = readWhole(from.filePath(file));
        return content.ok && writeWhole(to.filePath(file), content.bytes).ok;
    });
}

// As on a first start: the project that is delivered, and none of the files that the walk will save.
bool prepare(const QString& program, const QString& files) {
    for (const QString& old : QDir(files).entryList(QDir::Files)) QFile::remove(QDir(files).filePath(old));
    QFile::remove(QDir(program).filePath(QStringLiteral("ui-state.ini")));
    QDir(QDir(program).filePath(QStringLiteral("unwritten edits"))).removeRecursively();
    const FileContent first = readWhole(QStringLiteral(":/first-start/default.prj"));
    return first.ok && writeWhole(QDir(program).filePath(QStringLiteral("default.prj")), first.bytes).ok &&
           copyLanguageFiles(program);
}

// Between the steps stands nothing that is no fault: without a screen, Qt tells what its stand-in leaves out.
void sayFaultsOnly(QtMsgType, const QMessageLogContext&, const QString& text) {
    for (const char* known : {"This plugin does not support ", "QStandardPaths: XDG_RUNTIME_DIR not set"})
        if (text.startsWith(QLatin1String(known))) return;
    complain(text);
}

}  // namespace

int main(int argc, char** argv) {
    qInstallMessageHandler(sayFaultsOnly);
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("kelvane-tour"));
    QGuiApplication::setWindowIcon(applicationIcon());
    QApplication::setStyle(new ToolStyle);
    QApplication::setQuitOnLastWindowClosed(false);
    QCommandLineParser arguments;
    arguments.addHelpOption();
    arguments.addPositionalArgument(QStringLiteral("folder"), QStringLiteral("for pictures and files"));
    const QCommandLineOption familyOption(QStringLiteral("family"), QStringLiteral("of the practice drive"),
                                          QStringLiteral("name"), QStringLiteral("Larch"));
    arguments.addOption(familyOption);
    arguments.process(app);
    const std::optional<Family> family = familyNamed(arguments.value(familyOption));
    if (!family) return complain(QStringLiteral("There is no family ") + arguments.value(familyOption));
    const QString folder = arguments.positionalArguments().value(0, QStringLiteral("results"));
    const QString pictures = subfolder(folder, QStringLiteral("pictures"));
    const QString files = subfolder(folder, QStringLiteral("files"));
    const QString program = subfolder(folder, QStringLiteral("program"));
    if (pictures.isEmpty() || files.isEmpty() || program.isEmpty() || !prepare(program, files))
        return complain(QStringLiteral("The folder %1 could not be prepared").arg(folder));

    Script script(pictures);
    Answers answers(script);
    Stage stage(program);
    Walk(stage, script, answers, *family, files).run();
    script.finish();
    std::printf("Pictures: %s\nFiles:    %s\n", qPrintable(QDir::toNativeSeparators(pictures)),
                qPrintable(QDir::toNativeSeparators(files)));
    return 0;
}

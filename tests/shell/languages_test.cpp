// The languages in the windows: each key of a file reaches its control; texts that no key names have a line
// in every catalogue where the window follows the language, and stay English elsewhere.
#include <gtest/gtest.h>

#include <QAction>
#include <QComboBox>
#include <QDirIterator>
#include <QLabel>
#include <QMenu>
#include <QRegularExpression>
#include <QTabWidget>

#include "commissioning/tune_texts.h"
#include "localisation/language_sections.h"
#include "shell/shell_bench.h"
#include "ui/in_language.h"
#include "ui/string_grid_view.h"

namespace kelvane {
namespace {

const QString Root = QStringLiteral(KELVANE_SOURCE_DIR "/");

void readCatalogue(TextCatalogue& texts, quint8 language) {
    texts.read(
        readWhole(Root + QStringLiteral("Language file/Texts_%1.txt").arg(languageCode(language))).bytes);
}

// "Com 20" and "12.5 %" are the same in every language.
bool hasWords(const QString& text) {
    static const QRegularExpression word(QStringLiteral("[A-Za-z][a-z]{2,}"));
    return text.contains(word);
}

// Names that are the same in every language, and texts that stay English as they are.
bool isName(const QString& text) {
    static const QSet<QString> given{"Off Line",           "Off - Line", "Save Lang", "About",
                                     "No errors occurred", "All",        "Sub"};
    if (given.contains(text) || text.startsWith(u'/') || text == QLatin1String("Kelvane")) return true;
    for (const Family family : AllFamilies)
        if (text == QLatin1String(familyName(family))) return true;
    return false;
}

// English texts of keys, which a control shows before a file has come.
const QSet<QString>& keyedTexts() {
    static const QSet<QString> texts = [] {
        QSet<QString> all;
        Language english;
        EXPECT_TRUE(LoadLanguage(Root + "Language file/Lang_EN.txt", english).ok());
        for (const FormTexts& form : english.table.Form) {
            all << form.Caption;
            for (const TextGroup* group : {&form.Button, &form.Hint, &form.Label})
                for (const QString& text : group->Text) all << text;
        }
        return all;
    }();
    return texts;
}

// What a key of the section, or another control's, sets.
QSet<QString> keyedControls(const FormSectionRow& row) {
    QSet<QString> names;
    for (const KeyGroup* group : {&row.Button, &row.Label})
        for (const KeyTarget& target : group->targets) names << QLatin1String(target.control);
    for (const MirroredMenu& mirror : mirroredMenus()) names << QLatin1String(mirror.menuItem);
    for (const CopiedLabel& label : copiedLabels()) names << QLatin1String(label.copy);
    return names;
}

bool isContent(const QObject& object, const char* property) {
    if (qobject_cast<const QAction*>(&object))
        return qstrcmp(property, "toolTip") == 0 || object.parent()->objectName() == "SetupLanguage" ||
               object.parent()->objectName() == "SoftwareUserManual" ||
               object.objectName().startsWith("Hide");
    for (const char* kind : {"QLineEdit", "QComboBox", "QTextEdit", "QPlainTextEdit", "QAbstractSpinBox"})
        if (object.inherits(kind)) return qstrcmp(property, "text") == 0;
    return false;
}

// A file in which every text says where it stands: "[Main Form]Button03".
QByteArray fileOfKeys() {
    QByteArray file;
    for (const FormSectionRow& section : formSections()) {
        const auto group = [&](const char* key, int count) {
            file += "\r\n";
            for (int n = 1; n <= count; ++n) {
                const QByteArray name = key + QByteArray::number(n).rightJustified(2, '0');
                file += name + '=' + section.header + name + "\r\n";
            }
        };
        file += section.header + QByteArray("\r\nCaption=") + section.header + "\r\n";
        group("Button", section.Button.count());
        group("Hint", section.Button.count());
        group("Label", section.Label.count());
    }
    for (const TypeSectionRow& row : typeSections()) {
        file += row.header + QByteArray("\r\n");
        for (int n = 1; n <= 9; ++n) file += "Label0" + QByteArray::number(n) + '=' + row.header + "\r\n";
    }
    return file;
}

// What a window shows and says anywhere, hidden pages included.
QStringList textsOf(const QWidget& window) {
    QStringList texts{window.windowTitle()};
    for (const QObject* object : window.findChildren<QObject*>()) {
        for (const char* property : {"text", "title", "toolTip", "plainText"})
            texts << object->property(property).toString();
        if (const auto* box = qobject_cast<const QComboBox*>(object))
            for (int i = 0; i < box->count(); ++i) texts << box->itemText(i);
        if (const auto* view = qobject_cast<const StringGridView*>(object); view && view->grid())
            for (int row = 0; row < view->grid()->RowCount(); ++row)
                for (int column = 0; column < view->grid()->ColCount(); ++column)
                    texts << view->grid()->cell(column, row);
    }
    return texts;
}

// By the menu, then on line and with every window opened: nothing sets a text back.
TEST(LanguageFile, ReachesAControlWithEveryKey) {
    ShellBench bench;
    const QString folder = QStringLiteral("share/kelvane/Language file");
    QDir(bench.dir.path()).mkpath(folder);
    writeWhole(bench.dir.filePath(folder + "/Lang_RU.txt"), fileOfKeys());
    bench.trigger("Russian");
    for (const Family family : {Family::Larch, Family::Yarrow}) {
        bench.goOnLine(family);
        for (const FormSectionRow& row : formSections()) {
            QWidget& window = *bench.windows->formOf(*windowRow(QLatin1String(row.window)));
            window.show();
            QStringList shown = textsOf(window);
            for (const bool motors : {true, false}) {
                const TuneTexts tuning = tuneTexts(bench.language.table, motors);
                shown += tuning.entries + tuning.descriptions;
            }
            EXPECT_EQ(window.windowTitle(), formSections()[size_t(titleSection(row.section))].header);
            const auto group = [&](const char* key, int count, auto holds) {
                for (int n = 1; n <= count; ++n) {
                    const QString text =
                        QStringLiteral("%1%2%3").arg(row.header, key).arg(n, 2, 10, QChar('0'));
                    EXPECT_TRUE(shown.contains(text) || shown.contains(' ' % text % ' '))
                        << text.toStdString();
                    holds(n, text);
                }
            };
            const auto button = [&](int n) {
                return bench.find<QWidget>(row.Button.targets[size_t(n - 1)].control, &window);
            };
            group("Button", row.Button.count(),
                  [&](int n, const QString& text) { EXPECT_EQ(captionOf(*button(n)), text); });
            group("Hint", row.Button.count(),
                  [&](int n, const QString& text) { EXPECT_EQ(button(n)->toolTip(), text); });
            group("Label", row.Label.count(), [](int, const QString&) {});
            for (const CopiedLabel& label : copiedLabels())
                if (row.window == QByteArray(label.window)) {
                    EXPECT_EQ(bench.find<QLabel>(label.copy, &window)->text(), bench.text(label.control));
                }
            if (&window != bench.mainForm.get()) window.hide();
        }
        for (const MirroredMenu& mirror : mirroredMenus())
            EXPECT_EQ(bench.find<QAction>(mirror.menuItem)->text(), bench.text(mirror.button));
        const QString type = family == Family::Larch ? "[Btype]" : "[ELtype]";
        EXPECT_TRUE(bench.tool->identification.itemList.contains(type));
        bench.tool->link.Initial();
    }
    EXPECT_EQ(bench.mainForm->windowTitle(), "[Main Form]");
    // The console's series bear the new names, the person's own table keeps its own.
    DrivePanel& panel = bench.tool->console.panel;
    panel.selectSeries(0);
    EXPECT_TRUE(
        textsOf(*bench.windows->formOf(*windowRow(QStringLiteral("TAdvanceForm")))).contains("[Mtype]"));

    // Mark-up in a hint is text, and a button's "&" marks its letter.
    FormTexts& texts = bench.language.table.form(FormSection::Main);
    texts.Hint.Text[0] = "<h1>Com</h1>";
    texts.Button.Text[0] = "&Com && Co";
    bench.windows->showLanguage();
    auto* com = bench.find<QAbstractButton>("ComSetupTransparentButton");
    EXPECT_EQ(com->toolTip(), "<p>&lt;h1&gt;Com&lt;/h1&gt;");
    EXPECT_EQ(com->shortcut(), QKeySequence("Alt+C"));
}

class OwnTexts : public testing::TestWithParam<quint8> {};

// Texts that the code of these windows sets while it runs.
TEST_P(OwnTexts, OfTheCodeBehindThem) {
    TextCatalogue catalogue;
    readCatalogue(catalogue, GetParam());
    static const QRegularExpression said(QStringLiteral(R"rx(\btr\(\s*"((?:[^"\\]|\\.)*)")rx"));
    static const QRegularExpression joint(QStringLiteral("\"\\s*\\n\\s*\""));
    static const QRegularExpression following(QStringLiteral(
        "^(scope|monitor|auto_tuning|pid|pid_guide|quick_setup|qs_source|parameter|com_setup|help|"
        "session_report|find_bar|trend_overview|slot_row)\\w*\\.cpp$"));
    QStringList missing;
    for (QDirIterator files(Root + "src", {"*.cpp"}, QDir::Files, QDirIterator::Subdirectories);
         files.hasNext();) {
        const QString path = files.next();
        if (!files.fileName().contains(following)) continue;
        const QString code = QString::fromUtf8(readWhole(path).bytes).remove(joint);
        for (const QRegularExpressionMatch& match : said.globalMatch(code)) {
            const QString text = match.captured(1).replace("\\n", "\n").replace("\\t", "\t").trimmed();
            if (hasWords(text) && !isName(text) && catalogue.text(text).isEmpty() &&
                !keyedTexts().contains(text))
                missing << files.fileName() + ": " + text;
        }
    }
    EXPECT_TRUE(missing.isEmpty()) << missing.join("\n").toStdString();
}

TEST_P(OwnTexts, OfEveryWindowThatFollowsTheLanguage) {
    TextCatalogue catalogue;
    readCatalogue(catalogue, GetParam());
    ShellBench bench;
    QSet<QString> missing;
    for (const FormSectionRow& row : formSections()) {
        QWidget* window = row.section == FormSection::Main
                              ? bench.mainForm.get()
                              : bench.windows->formOf(*windowRow(QLatin1String(row.window)));
        ASSERT_NE(window, nullptr) << row.window;
        const QSet<QString> keyed = keyedControls(row);
        for (const QObject* object : window->findChildren<QObject*>()) {
            if (!object->isWidgetType() && !qobject_cast<const QAction*>(object)) continue;
            if (const auto* menu = qobject_cast<const QAction*>(object); menu && menu->menu()) continue;
            if (const auto* tabs = qobject_cast<const QTabWidget*>(object))
                for (int page = 0; page < tabs->count(); ++page)
                    if (const QString text = tabs->tabText(page);
                        hasWords(text) && !isName(text) &&
                        !keyed.contains(tabs->widget(page)->objectName()) && catalogue.text(text).isEmpty())
                        missing << QLatin1String(row.window) + QStringLiteral(" tab: ") + text;
            for (const char* property : {"text", "title", "toolTip", "placeholderText", "accessibleName"}) {
                const QString text = object->property(property).toString();
                // The spoken name of such a control goes with its caption.
                const bool named = keyed.contains(object->objectName());
                if (named || isContent(*object, property) || !hasWords(text) || isName(text)) continue;
                if (catalogue.text(text).isEmpty())
                    missing << QLatin1String(row.window) + QStringLiteral(": ") + text;
            }
        }
    }
    QStringList list(missing.begin(), missing.end());
    list.sort();
    EXPECT_TRUE(list.isEmpty()) << list.join("\n").toStdString();
}

TEST_P(OwnTexts, LeaveWindowsWithoutKeysInEnglish) {
    ShellBench bench;
    QSet<QString> keyed{"THelpForm", "TSessionReportForm"};  // speak the language of the manual
    for (const FormSectionRow& row : formSections()) keyed << row.window;
    Translations translations;
    const auto shown = [&] {
        QStringList texts;
        for (const QWidget* window : bench.windows->all())
            if (!keyed.contains(window->objectName())) texts << textsOf(*window);
        return texts;
    };
    const QStringList english = shown();
    translations.choose(GetParam(), Root + "Language file");
    translations.show(bench.windows->all());
    EXPECT_EQ(shown(), english);
    EXPECT_EQ(QCoreApplication::translate("kelvane::TInputForm", "Copy"), "Copy");
    EXPECT_NE(QCoreApplication::translate("kelvane::TParameterForm", "Copy"), "Copy");
}

// Texts without a key in the language file, and Qt's own, follow the language and come back.
TEST(Translations, TranslateWhatNoKeyNamesAndComeBackToEnglish) {
    Translations translations;
    QWidget window;
    QLabel stop("Stop bits", &window);
    QAction find("&Find...", &window);
    QLabel what("&Find:", &window);
    QLabel value("12.50", &window);
    const QString folder = QStringLiteral(KELVANE_SOURCE_DIR) + "/Language file";
    translations.choose(9, folder);
    translations.show({&window});
    EXPECT_EQ(stop.text(), QString::fromUtf8("Стоп-биты"));
    EXPECT_EQ(value.text(), "12.50");
    stop.setText("Parity");  // set by code meanwhile
    translations.choose(2, folder);
    translations.show({&window});
    EXPECT_EQ(find.text() + what.text(), QString::fromUtf8("查找(&F)...查找(&F)："));
    translations.choose(4, folder);
    translations.show({&window});
    EXPECT_EQ(stop.text() + find.text(), "Parity&Find...");
}

// What engines say is English with values in it; a catalogue knows it by its words, and the values in turn.
TEST(Translations, FindTextsOfEnginesByTheirWords) {
    const QString folder = QStringLiteral(KELVANE_SOURCE_DIR) + "/Language file";
    Translations translations;
    translations.choose(3, folder);
    EXPECT_EQ(inLanguage("/mnt/x.txt: the disk is full"),
              QString::fromUtf8("/mnt/x.txt: der Datenträger ist voll"));
    EXPECT_EQ(inLanguage("1 difference. Rows that could not be compared: 2 of the drive, 0 of the file."),
              QString::fromUtf8("1 Unterschied. Nicht vergleichbare Zeilen: 2 des Umrichters, 0 der Datei."));
    EXPECT_EQ(inLanguage("7 of 198") + inLanguage("Loaded a.trd"), "7 von 198a.trd geladen");
    EXPECT_EQ(inLanguage("Quick Setup: 3 of 26 settings were not written: 01-01 (no answer), 02-02 (not "
                         "sent), 03 (not sent)"),
              "Schnellstart: 3 von 26 Einstellungen wurden nicht geschrieben: 01-01 (keine Antwort), "
              "02-02 (nicht gesendet), 03 (nicht gesendet)");
    EXPECT_EQ(inLanguage("Initial drive failed !!"), "Initial drive failed !!");
    translations.choose(4, folder);
    EXPECT_EQ(inLanguage("1 difference."), "1 difference.");

    // All catalogues have the same texts, with the same places for values.
    const auto places = [](QString text) {
        QStringList found;
        for (int i = 1; i <= 9; ++i)
            if (text.contains(QStringLiteral("%%1").arg(i))) found += QString::number(i);
        return found.join(' ');
    };
    QStringList first;
    for (const char* code : {"CHT", "CHS", "DE", "RU"}) {
        QStringList texts;
        const QByteArray bytes = readWhole(folder + "/Texts_" + code + ".txt").bytes;
        for (const QString& line : QString::fromUtf8(bytes).split('\n', Qt::SkipEmptyParts)) {
            if (line.startsWith('#')) continue;
            texts += line.section('=', 0, 0);
            EXPECT_EQ(places(texts.last()), places(line.section('=', 1))) << line.toStdString();
            EXPECT_FALSE(line.section('=', 1).isEmpty()) << line.toStdString();
        }
        texts.sort();
        EXPECT_EQ(texts.removeDuplicates(), 0) << code;
        if (first.isEmpty()) first = texts;
        EXPECT_EQ(texts, first) << code;
    }
    EXPECT_GT(first.size(), 150);
}

INSTANTIATE_TEST_SUITE_P(Catalogues, OwnTexts, testing::Values<quint8>(1, 2, 3, 9),
                         [](const auto& language) { return languageCode(language.param).toStdString(); });

}  // namespace
}  // namespace kelvane

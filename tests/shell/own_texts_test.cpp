// Texts of ours that no key of a language file names: each has a line in every catalogue, in the windows that
// follow the language and in the sources behind them.
#include <gtest/gtest.h>

#include <QAction>
#include <QMenu>
#include <QRegularExpression>

#include "localisation/language_sections.h"
#include "shell/shell_bench.h"

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

class OwnTexts : public testing::TestWithParam<quint8> {};

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

TEST_P(OwnTexts, LeaveConsoleAndKeypadInEnglish) {
    ShellBench bench;
    Translations translations;
    const auto shown = [&] {
        QStringList texts;
        for (const char* name : {"TAdvanceForm", "TKeypadForm"})
            for (const QWidget* control : bench.windows->formOf(*windowRow(name))->findChildren<QWidget*>())
                texts << control->property("text").toString() << control->toolTip();
        return texts;
    };
    const QStringList english = shown();
    translations.choose(GetParam(), Root + "Language file");
    translations.show(bench.windows->all());
    EXPECT_EQ(shown(), english);
}

INSTANTIATE_TEST_SUITE_P(Catalogues, OwnTexts, testing::Values<quint8>(1, 2, 3, 9),
                         [](const auto& language) { return languageCode(language.param).toStdString(); });

}  // namespace
}  // namespace kelvane

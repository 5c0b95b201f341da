#include "shell/translations.h"

#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QRegularExpression>
#include <QTabWidget>
#include <QWidget>
#include <algorithm>

#include "base/whole_file.h"
#include "localisation/language_file.h"
#include "localisation/language_sections.h"
#include "shell/window_table.h"
#include "ui/in_language.h"

namespace kelvane {

namespace {

// Of Qt's catalogues, by LanguageIndex from 1.
constexpr std::array<const char*, 10> QtNames{"zh_TW", "zh_CN", "de",    "en", "fr",
                                              "ja",    "ko",    "pt_BR", "ru", "es"};

// What a place of a pattern may hold. " of " or " to " alone stand in many a sentence: only figures are
// joined by them.
QString placeFor(const QString& english, const QRegularExpression& place) {
    const QString own = QString(english).remove(place);
    constexpr int Preposition = 3;
    const auto letters = std::count_if(own.begin(), own.end(), [](QChar c) { return c.isLetter(); });
    return letters > 0 && letters <= Preposition ? QStringLiteral("([^\\p{L}]+?)") : QStringLiteral("(.+?)");
}

QString unescaped(QString text) { return text.replace(QLatin1String("\\n"), QLatin1String("\n")); }

// What a person typed, a list holds or a drive says is nobody's to translate.
bool isContent(const QObject& object) {
    if (object.property("content").toBool()) return true;
    for (const char* kind : {"QLineEdit", "QTextEdit", "QPlainTextEdit", "QComboBox", "QAbstractSpinBox"})
        if (object.inherits(kind)) return true;
    return false;
}

// Help and report have no keys and speak the language of the manual, their titles too.
bool speaksAsTheManual(const QString& form) {
    return form == QLatin1String("THelpForm") || form == QLatin1String("TSessionReportForm");
}

// Console, keypad and every dialog without keys stay as they are, whole.
bool staysEnglish(const QString& form) {
    if (!windowRow(form) || speaksAsTheManual(form)) return false;
    const auto sections = formSections();
    return std::none_of(sections.begin(), sections.end(),
                        [&](const FormSectionRow& row) { return form == QLatin1String(row.window); });
}

// "kelvane::TInputForm", as the texts in the code of a form are asked for.
QString formOf(const char* context) { return QString::fromLatin1(context).section(QStringLiteral("::"), -1); }

}  // namespace

void TextCatalogue::read(const QByteArray& bytes) {
    m_texts.clear();
    m_patterns.clear();
    for (const QString& line : QString::fromUtf8(bytes).split(QLatin1Char('\n'))) {
        const QString entry = line.trimmed();
        const qsizetype sign = entry.indexOf(QLatin1Char('='));
        if (sign <= 0 || entry.startsWith(QLatin1Char('#'))) continue;
        const QString english = unescaped(entry.left(sign));
        const QString text = unescaped(entry.mid(sign + 1));
        m_texts.insert(english, text);
        if (english.contains(QLatin1String("%1"))) addPattern(english, text);
    }
    std::stable_sort(m_patterns.begin(), m_patterns.end(),
                     [](const Pattern& a, const Pattern& b) { return a.letters > b.letters; });
}

void TextCatalogue::addPattern(const QString& english, const QString& text) {
    static const QRegularExpression place(QStringLiteral("%([1-9])"));
    const QString value = placeFor(english, place);
    Pattern pattern{{}, {}, text, english.size()};
    QString expression;
    qsizetype from = 0;
    for (const QRegularExpressionMatch& found : place.globalMatch(english)) {
        expression += QRegularExpression::escape(english.mid(from, found.capturedStart() - from)) % value;
        pattern.places += found.captured(1).toInt();
        pattern.letters -= found.capturedLength();
        from = found.capturedEnd();
    }
    expression += QRegularExpression::escape(english.mid(from));
    pattern.english.setPattern(QRegularExpression::anchoredPattern(expression));
    pattern.english.setPatternOptions(QRegularExpression::DotMatchesEverythingOption);
    m_patterns += pattern;
}

QString TextCatalogue::engineText(const QString& english) const {
    QString whole = m_texts.value(english);
    if (!whole.isEmpty()) return whole;
    for (const Pattern& pattern : m_patterns) {
        const QRegularExpressionMatch match = pattern.english.match(english);
        if (!match.hasMatch()) continue;
        QString filled;
        for (qsizetype i = 0; i < pattern.text.size(); ++i) {
            const qsizetype group =
                pattern.text[i] == u'%' ? pattern.places.indexOf(pattern.text.mid(i + 1, 1).toInt()) : -1;
            if (group < 0) {
                filled += pattern.text[i];
                continue;
            }
            const QString value = match.captured(int(group) + 1);
            const QString found = engineText(value);
            filled += found.isEmpty() ? value : found;
            ++i;
        }
        return filled;
    }
    return {};
}

// "Colour of channel 3" is a line for all channels.
QString TextCatalogue::counted(const QString& english) const {
    QString found = m_texts.value(english);
    static const QRegularExpression number(QStringLiteral("\\b\\d+\\b"));
    const QRegularExpressionMatch match = found.isEmpty() ? number.match(english) : QRegularExpressionMatch();
    if (!match.hasMatch()) return found;
    QString pattern = english;
    pattern.replace(match.capturedStart(), match.capturedLength(), QStringLiteral("%1"));
    const QString all = m_texts.value(pattern);
    return all.contains(QLatin1String("%1")) ? all.arg(match.captured()) : QString();
}

QString TextCatalogue::text(const QString& english) const {
    if (const qsizetype key = english.indexOf(QLatin1Char('\t')); key >= 0) {
        const QString found = text(english.left(key));
        return found.isEmpty() ? found : found + english.mid(key);
    }
    const qsizetype mark = english.indexOf(QLatin1Char('&'));
    if (mark < 0 || mark + 1 == english.size() || m_texts.contains(english)) return counted(english);
    QString found = m_texts.value(QString(english).remove(mark, 1));
    if (found.isEmpty()) return found;
    constexpr char16_t FirstIdeograph = 0x2E80;
    if (found[0].unicode() < FirstIdeograph) return QLatin1Char('&') % found;
    qsizetype end = found.size();
    if (found.endsWith(QLatin1String("..."))) end -= 3;
    if (found.endsWith(QChar(0xFF1A))) end -= 1;  // the wide colon
    return found.insert(end, QStringLiteral("(&%1)").arg(english[mark + 1].toUpper()));
}

QString TextCatalogue::translate(const char* context, const char* sourceText, const char*, int) const {
    const QString english = QString::fromUtf8(sourceText);
    if (staysEnglish(formOf(context))) return {};
    return qstrcmp(context, EngineTexts) == 0 ? engineText(english) : text(english);
}

void Translations::choose(quint8 LanguageIndex, const QString& languageFolder) {
    QCoreApplication::removeTranslator(&m_qt);
    QCoreApplication::removeTranslator(&m_ours);
    m_ours.read({});
    constexpr quint8 English = 4;
    if (LanguageIndex < 1 || LanguageIndex > QtNames.size() || LanguageIndex == English) return;
    if (m_qt.load(QStringLiteral("qtbase_") + QLatin1String(QtNames[LanguageIndex - 1U]),
                  QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&m_qt);
    const QString name = QStringLiteral("Texts_%1.txt").arg(languageCode(LanguageIndex));
    const FileContent file =
        readWhole(languageFolder.isEmpty() ? QString() : QDir(languageFolder).filePath(name));
    if (!file.ok) return;
    m_ours.read(file.bytes);
    QCoreApplication::installTranslator(&m_ours);
}

// Titles of tabs, which no control of their own shows.
void Translations::showTabs(QTabWidget& tabs) const {
    for (int page = 0; page < tabs.count(); ++page) {
        QWidget& sheet = *tabs.widget(page);
        const QString now = tabs.tabText(page);
        const bool isOurs = !now.isEmpty() && sheet.property("lastTab").toString() == now;
        const QString english = isOurs ? sheet.property("englishTab").toString() : now;
        const QString found = m_ours.text(english);
        const QString wanted = found.isEmpty() ? english : found;
        if (wanted != now) tabs.setTabText(page, wanted);
        sheet.setProperty("englishTab", english);
        sheet.setProperty("lastTab", wanted);
    }
}

// A text that somebody has set since the last time is English again, or of a language file that knows it.
void Translations::show(const QList<QWidget*>& windows) const {
    const auto showIn = [this](QObject& object) {
        const bool isLabel = object.inherits("QLabel");  // it may hold what an engine said
        for (const ShownText& shown : ShownTexts) {
            if (object.metaObject()->indexOfProperty(shown.property) < 0) continue;
            if (qstrcmp(shown.property, "text") == 0 && isContent(object)) continue;
            const QString now = object.property(shown.property).toString();
            if (now.isEmpty()) continue;
            const QVariant last = object.property(shown.last);
            const QString english =
                last.isValid() && last.toString() == now ? object.property(shown.english).toString() : now;
            QString found = m_ours.text(english);
            if (found.isEmpty() && isLabel && !m_ours.isEmpty()) found = inLanguage(english);
            const QString wanted = found.isEmpty() ? english : found;
            if (wanted != now) object.setProperty(shown.property, wanted);
            object.setProperty(shown.english, english);
            object.setProperty(shown.last, wanted);
        }
    };
    for (QWidget* window : windows) {
        if (staysEnglish(window->objectName())) continue;
        if (speaksAsTheManual(window->objectName())) showIn(*window);
        for (QObject* object : window->findChildren<QObject*>()) {
            if (auto* tabs = qobject_cast<QTabWidget*>(object)) {
                showTabs(*tabs);
            } else if (qobject_cast<QWidget*>(object) || qobject_cast<QAction*>(object)) {
                showIn(*object);
            }
        }
    }
}

}  // namespace kelvane

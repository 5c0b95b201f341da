// Texts that no language file has a key for: Qt's own (Yes, No, OK, file dialogs) from Qt's catalogue, and
// ours from "Texts_RU.txt" and the like beside the language files, by LanguageIndex. Chosen at start and by
// the language menu; what windows show already is translated in place.
#pragma once

#include <QHash>
#include <QList>
#include <QRegularExpression>
#include <QTranslator>
#include <array>

class QTabWidget;
class QWidget;

namespace kelvane {

// What a control shows, by the properties that hold it, and where its English and what we set are kept.
struct ShownText {
    const char* property;
    const char* english;
    const char* last;
};
inline constexpr std::array<ShownText, 6> ShownTexts{
    {{"text", "englishText", "lastText"},
     {"title", "englishTitle", "lastTitle"},
     {"toolTip", "englishToolTip", "lastToolTip"},
     {"placeholderText", "englishPlaceholder", "lastPlaceholder"},
     {"accessibleName", "englishName", "lastName"},
     {"windowTitle", "englishTitleBar", "lastTitleBar"}}};

// A catalogue of lines "English text=text", in UTF-8, with \n for a line end. A text is one in all windows,
// so the context in which Qt asks is not looked at; but only for texts of engines a place such as %1 also
// stands for what the engine put there, which is looked up in turn.
class TextCatalogue : public QTranslator {
    Q_OBJECT
   public:
    using QTranslator::QTranslator;

    // Lines of a file; empty ones, those from "#" on and those without "=" are left out.
    void read(const QByteArray& bytes);
    // Empty when the catalogue does not have it. A mark for the keyboard in the English text stands in the
    // other, before its first letter or, where letters have no key, behind it in parentheses.
    QString text(const QString& english) const;
    bool isEmpty() const override { return m_texts.isEmpty(); }
    QString translate(const char* context, const char* sourceText, const char* disambiguation,
                      int n) const override;

   private:
    struct Pattern {
        QRegularExpression english;
        QList<int> places;  // whose value each group of the expression is
        QString text;
        qsizetype letters = 0;  // outside the places; the pattern with most of them is looked at first
    };
    void addPattern(const QString& english, const QString& text);
    QString engineText(const QString& english) const;
    QString counted(const QString& english) const;

    QHash<QString, QString> m_texts;
    QList<Pattern> m_patterns;
};

class Translations : public QObject {
    Q_OBJECT
   public:
    using QObject::QObject;

    // languageFolder may be empty or without catalogues: texts are then English.
    void choose(quint8 LanguageIndex, const QString& languageFolder);
    // Labels, buttons, menus, hints and titles that were set in English.
    void show(const QList<QWidget*>& windows) const;

   private:
    void showTabs(QTabWidget& tabs) const;

    QTranslator m_qt;
    TextCatalogue m_ours;
};

}  // namespace kelvane

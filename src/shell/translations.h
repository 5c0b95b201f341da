// Texts that no language file has a key for: Qt's own (Yes, No, OK, file dialogs) from Qt's catalogue, and
// ours from "Texts_RU.txt" and the like beside the language files, by LanguageIndex. Chosen at start and by
// the language menu; what windows show already is translated in place.
#pragma once

#include <QHash>
#include <QList>
#include <QTranslator>

class QWidget;

namespace kelvane {

// A catalogue of lines "English text=text", in UTF-8, with \n for a line end. A text is one in all windows,
// so the context in which Qt asks is not looked at.
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
    QHash<QString, QString> m_texts;
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
    QTranslator m_qt;
    TextCatalogue m_ours;
};

}  // namespace kelvane

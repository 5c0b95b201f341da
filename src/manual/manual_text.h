// The user's manual as it is compiled in: Markdown chapters of one language, and which chapter belongs to
// which window. Read by the help window, the builder of the PDF and the tests.
#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <vector>

namespace kelvane {

struct ManualChapter {
    QString name;   // "05-writing.md", as links between chapters call it
    QString title;  // of its first heading
    QString text;   // Markdown without the lines that name windows
    QStringList windows;
};

class ManualText {
   public:
    // Codes are those of the PDF files: "Eng", "CHT", "CHS", "Deu", "Rus".
    static QStringList languages();
    // The code for a LanguageIndex; English for one that has no manual.
    static QString codeOf(quint8 LanguageIndex);
    // Empty for a code that has no manual.
    static ManualText of(const QString& code);
    // Splits Markdown at its headings of the first level; name is the file's.
    static std::vector<ManualChapter> chaptersOf(const QString& name, const QString& markdown);

    const std::vector<ManualChapter>& chapters() const { return m_chapters; }
    // Place of the chapter of a window's class; 0, safety first, for one that has none.
    int chapterOf(const QString& window) const;
    int chapterNamed(const QString& name) const;  // -1 when there is none

    struct Hit {
        int chapter;
        QString line;  // without mark-up
    };
    // Lines with the words in any case, at most `most` of them.
    std::vector<Hit> find(const QString& words, int most = 200) const;

   private:
    std::vector<ManualChapter> m_chapters;
};

}  // namespace kelvane

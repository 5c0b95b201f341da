#include "manual/manual_text.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <array>

static void loadManual() { Q_INIT_RESOURCE(manual); }  // a static library's resources do not load themselves

namespace kelvane {

namespace {

struct ManualLanguage {
    const char* code;
    const char* folder;
    quint8 LanguageIndex;
};
constexpr std::array<ManualLanguage, 5> Languages{{{"Eng", ":/manual", 4},
                                                   {"CHT", ":/manual/cht", 1},
                                                   {"CHS", ":/manual/chs", 2},
                                                   {"Deu", ":/manual/deu", 3},
                                                   {"Rus", ":/manual/rus", 9}}};

QString withoutMarks(const QString& line) {
    static const QRegularExpression marks(
        QStringLiteral(R"(!\[[^\]]*\]\([^)]*\)|\]\([^)]*\)|^#+ |^\d+\. |^- |[*`\[]|^ *\||\| *$)"));
    QString text = line;
    return text.remove(marks).replace(QLatin1Char('|'), QStringLiteral(" – ")).simplified();
}

}  // namespace

QStringList ManualText::languages() {
    QStringList codes;
    for (const ManualLanguage& language : Languages) codes << QLatin1String(language.code);
    return codes;
}

QString ManualText::codeOf(quint8 LanguageIndex) {
    for (const ManualLanguage& language : Languages)
        if (language.LanguageIndex == LanguageIndex) return QLatin1String(language.code);
    return QLatin1String(Languages[0].code);
}

std::vector<ManualChapter> ManualText::chaptersOf(const QString& name, const QString& markdown) {
    static const QString windowsMark = QStringLiteral("<!-- windows:");
    std::vector<ManualChapter> chapters;
    for (const QString& line : markdown.split(QLatin1Char('\n'))) {
        if (line.startsWith(QLatin1String("# "))) {
            const QString own =
                chapters.empty() ? name : name % QStringLiteral("-%1").arg(chapters.size() + 1);
            chapters.push_back({own, line.mid(2).trimmed(), {}, {}});
        }
        if (chapters.empty()) continue;
        ManualChapter& chapter = chapters.back();
        if (line.startsWith(windowsMark))
            chapter.windows =
                line.mid(windowsMark.size()).remove(QStringLiteral("-->")).split(u' ', Qt::SkipEmptyParts);
        else
            chapter.text += line % QLatin1Char('\n');
    }
    return chapters;
}

ManualText ManualText::of(const QString& code) {
    loadManual();
    ManualText manual;
    for (const ManualLanguage& language : Languages) {
        if (code != QLatin1String(language.code)) continue;
        const QDir folder(QString::fromLatin1(language.folder));
        for (const QString& name : folder.entryList({QStringLiteral("*.md")}, QDir::Files, QDir::Name)) {
            QFile file(folder.filePath(name));
            if (!file.open(QIODevice::ReadOnly)) continue;
            for (ManualChapter& chapter : chaptersOf(name, QString::fromUtf8(file.readAll())))
                manual.m_chapters.push_back(std::move(chapter));
        }
    }
    return manual;
}

int ManualText::chapterOf(const QString& window) const {
    for (size_t i = 0; i < m_chapters.size(); ++i)
        if (m_chapters[i].windows.contains(window)) return static_cast<int>(i);
    return 0;
}

int ManualText::chapterNamed(const QString& name) const {
    for (size_t i = 0; i < m_chapters.size(); ++i)
        if (m_chapters[i].name == name) return static_cast<int>(i);
    return -1;
}

std::vector<ManualText::Hit> ManualText::find(const QString& words, int most) const {
    std::vector<Hit> hits;
    if (words.trimmed().isEmpty()) return hits;
    for (size_t i = 0; i < m_chapters.size(); ++i)
        for (const QString& line : m_chapters[i].text.split(QLatin1Char('\n'))) {
            const QString text = withoutMarks(line);
            if (!text.contains(words.trimmed(), Qt::CaseInsensitive)) continue;
            if (static_cast<int>(hits.size()) == most) return hits;
            hits.push_back({static_cast<int>(i), text});
        }
    return hits;
}

}  // namespace kelvane

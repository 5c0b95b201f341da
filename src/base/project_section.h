// Sections of project files, the plain texts that keep a person's setup: a header line, and behind it values
// by their place. Each engine reads and writes its own section with these; the shell keeps the files.
#pragma once

#include <QByteArray>
#include <QStringList>
#include <functional>
#include <span>

namespace kelvane {

// Lines with CR LF.
class SectionWriter {
   public:
    void line(const QString& text = {});
    void line(const char* key, const QString& value);
    void line(const char* key, int value) { line(key, QString::number(value)); }
    const QByteArray& bytes() const { return m_bytes; }

   private:
    QByteArray m_bytes;
};

// How the reading of a section went. A line that is missing or cannot be read ends it: what came before is in
// force in the record, the rest of the record is as it was.
struct SectionRead {
    bool found = false;
    int taken = 0;  // values in force, in the order of the file
    QString error;  // plain words for a person, empty when all was read
    bool ok() const { return error.isEmpty(); }
};

enum class Taken { Yes, NotReadable, TooFew };
using TakeValue = std::function<Taken(int place, const QString& value)>;

inline constexpr int CutAtEqualSign = -1;  // as a key width
// Takes the lines at the offsets behind every line that equals the header; the last section of a name wins.
SectionRead readSection(const QStringList& lines, const char* header, std::span<const int> offsets,
                        int keyWidth, const TakeValue& take);
std::span<const int> firstLines(
    std::size_t count);  // offsets of the lines right behind the header, 10 at most

Taken takeNumber(const QString& value, int& into);
Taken takeBoolean(const QString& value, bool& into);        // "True" or "False" in any case
QStringList splitAt(char separator, const QString& value);  // nothing in an empty value

}  // namespace kelvane

// The table of texts that all sheets of a workbook share: the writer collects cell texts in it and stores it
// with the index that office programs use to find a text quickly.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <vector>

namespace kelvane {

// A text in the form of the file: without characters beyond Latin-1 one byte each, else two.
bool fitsEightBit(const QString& text);
void appendCharacters(QByteArray& out, QStringView text, bool eightBit);

class SharedStrings {
   public:
    quint32 indexOf(const QString& text);  // counts the use and adds the text if it is new
    // Appends the records; positions are those in `out`, which is the workbook stream from its first byte.
    void append(QByteArray& out) const;

   private:
    QHash<QString, quint32> m_index;
    std::vector<QString> m_texts;
    quint32 m_uses = 0;
};

}  // namespace kelvane

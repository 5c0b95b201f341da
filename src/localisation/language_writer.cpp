#include "localisation/language_writer.h"

#include <QStringList>

namespace kelvane {

namespace {

// Key with its number in two digits: "Button01=".
QString key(const char* group, int number) {
    return QString::fromLatin1(group) % QStringLiteral("%1=").arg(number, 2, 10, QLatin1Char('0'));
}

QString withoutBlanks(QString text) {
    if (text.startsWith(u' ')) text.remove(0, 1);
    if (text.endsWith(u' ')) text.chop(1);
    return text;
}

QString joined(const QString& memo) { return memo.split(u'\n', Qt::SkipEmptyParts).join(u' '); }

QString labelText(const QString& shown, const KeyTarget& target) {
    if (target.kind == TargetKind::MemoLine) return joined(shown);
    return target.blankEachSide ? withoutBlanks(shown) : shown;
}

// Kept: a text with a line end becomes two lines and shifts what follows; the reader knows no escape.
class LanguageWriter {
   public:
    LanguageWriter(const LangTable& table, const LiveTexts& live) : m_table(table), m_live(live) {}

    // Kept: there is no [Language] section, so loading a saved file leaves LanguageIndex alone.
    QString write() {
        for (const FormSectionRow& form : formSections()) {
            addForm(form);
            if (form.section == FormSection::Trend) addTypes();
        }
        addMessages();
        QString text = m_lines.join(u'\n') % QStringLiteral("\n");
        text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
        return text.replace(QStringLiteral("\n"), QStringLiteral("\r\n"));
    }

   private:
    void addForm(const FormSectionRow& form) {
        m_lines << QString::fromLatin1(form.header) << QStringLiteral("Caption=") % m_live.caption(form)
                << QString();
        addGroup(form.Button, "Button", [&](const KeyTarget& target) { return m_live.text(form, target); });
        addGroup(form.Hint, "Hint", [&](const KeyTarget& target) { return m_live.hint(form, target); });
        addGroup(form.Label, "Label",
                 [&](const KeyTarget& target) { return labelText(m_live.text(form, target), target); });
    }

    // An empty line ends a group; a group without keys has none.
    template <typename Text>
    void addGroup(const KeyGroup& keys, const char* name, Text text) {
        for (int number = 1; number <= keys.written; ++number)
            m_lines << key(name, number) % text(keys.targets[static_cast<size_t>(number - 1)]);
        if (keys.written > 0) m_lines << QString();
    }

    void addTypes() {
        for (const TypeSectionRow& row : typeSections()) {
            const LangTable::TypeNames names = m_table.typeSet(static_cast<int>(row.section));
            m_lines << QString::fromLatin1(row.header);
            for (size_t i = 0; i < names.size(); ++i)
                m_lines << key("Label", static_cast<int>(i) + 1) % names[i];
            m_lines << QString();
        }
    }

    void addMessages() {
        m_lines << QString::fromLatin1(MessageHeader);
        for (int number = 1; number <= LangTable::MessageCount; ++number)
            m_lines << key("MsgStr", number) % m_table.messageOfKey(number);
    }

    const LangTable& m_table;
    const LiveTexts& m_live;
    QStringList m_lines;
};

}  // namespace

QString writeLanguage(const LangTable& table, const LiveTexts& live) {
    return LanguageWriter(table, live).write();
}

FileResult saveLanguage(const QString& path, const Language& language, const LiveTexts& live) {
    const QByteArray codePage = languageCodePage(path, language.LanguageIndex);
    return writeWhole(path, encodeLanguage(writeLanguage(language.table, live), codePage));
}

}  // namespace kelvane

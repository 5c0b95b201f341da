// Looks that a person expects to last beyond a run, such as recent files and the last folder: texts and lists
// of texts by key. The shell keeps them in the program's ui-state file and hands them to the windows.
#pragma once

#include <QHash>
#include <QStringList>

namespace kelvane {

class KeptLooks {
   public:
    virtual ~KeptLooks() = default;
    virtual QString text(const QString& key) const = 0;  // empty when there is none
    virtual void setText(const QString& key, const QString& text) = 0;
    virtual QStringList list(const QString& key) const = 0;
    virtual void setList(const QString& key, const QStringList& list) = 0;
};

// For tests, and where no file can be kept.
class LooksInMemory final : public KeptLooks {
   public:
    QString text(const QString& key) const override { return list(key).value(0); }
    void setText(const QString& key, const QString& text) override { setList(key, {text}); }
    QStringList list(const QString& key) const override { return m_lists.value(key); }
    void setList(const QString& key, const QStringList& list) override { m_lists.insert(key, list); }

   private:
    QHash<QString, QStringList> m_lists;
};

}  // namespace kelvane

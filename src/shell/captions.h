// The caption of a control, whatever kind it is: what the language menu sets, what a translator edits and
// what the writer of language files asks for.
#pragma once

#include <QList>
#include <QString>

#include "localisation/language_writer.h"

class QWidget;

namespace kelvane {

QWidget* windowNamed(const QList<QWidget*>& windows, const char* name);  // null when there is none

// Of a label, button, group box, menu, memo or page of tabs.
QString captionOf(const QObject& control);
void setCaption(QObject& control, const QString& text);

// The windows' texts as they are on the screen now, for "Save Lang".
class WindowTexts : public LiveTexts {
   public:
    WindowTexts(const QList<QWidget*>& windows, const LangTable& table)
        : m_windows(windows), m_table(table) {}
    QString caption(const FormSectionRow& form) const override;
    QString text(const FormSectionRow& form, const KeyTarget& target) const override;
    QString hint(const FormSectionRow& form, const KeyTarget& target) const override;

   private:
    const QList<QWidget*>& m_windows;
    const LangTable& m_table;
};

}  // namespace kelvane

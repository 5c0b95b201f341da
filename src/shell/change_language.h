// ChangeLanguage: copies the language table to the windows by object name, group by group, as the one table
// of sections tells. Only groups that some file has filled are shown, so the built-in English blanks no
// caption.
#pragma once

#include <QList>

#include "localisation/lang_table.h"

class QWidget;

namespace kelvane {

// windows are all that exist, found by their object names; a window that is not built yet is passed over.
void ChangeLanguage(const LangTable& table, const QList<QWidget*>& windows);

}  // namespace kelvane

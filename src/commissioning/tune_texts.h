// Texts of the auto tuning window that a language file may hold: the entries of its box and what each of them
// does.
#pragma once

#include <QStringList>

#include "localisation/lang_table.h"

namespace kelvane {

struct TuneTexts {
    QStringList entries;       // TuneParaComboBox; the first is neutral
    QStringList descriptions;  // TuneDesLabel of each entry; the first is empty
};

// One of the twelve, from 1, in the order of their keys.
QString tuneText(const LangTable& lang, int field);

// For a drive with two motors other entries are offered than for the rest.
TuneTexts tuneTexts(const LangTable& lang, bool twoMotors);

}  // namespace kelvane

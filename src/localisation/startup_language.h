// Which language the program starts in: the number from default.prj, its file, and the built-in English when
// either fails. Run by the splash before any other window exists; the language menu uses the second half.
#pragma once

#include "base/operator.h"
#include "localisation/language_file.h"

namespace kelvane {

inline constexpr quint8 BrandVariantOfBuild = 0;  // 0, 1 or 2: under which name this build is sold
inline constexpr quint8 EnglishIndex = 4;

// Number behind section [Language] of default.prj; a file without the section leaves it alone. Errors: cannot
// open, the section's line is missing, no number in it.
LanguageResult LoadProject(const QString& path, quint8& LanguageIndex);

// Fills the language from the project at path and from the file in languageFolder; what the file does not
// give stays as the built-in English has it. Each failure shows a box and ends in English; after the second
// no form text is filled, so windows keep their own.
void startLanguage(Language& language, const QString& project, const QString& languageFolder,
                   Operator& person);

// Choice in the language menu. True: show the table in the windows. False: a box said why not, and nothing
// is to be shown. LanguageIndex follows the file's own section only.
bool chooseLanguage(Language& language, quint8 index, const QString& languageFolder, Operator& person);

}  // namespace kelvane

// Writer of language files ("Save Lang"). It asks the windows for what they show, so that captions edited on
// screen are caught; item names and messages come from the table. Called by the main window in edit mode.
#pragma once

#include "base/whole_file.h"
#include "localisation/language_file.h"
#include "localisation/language_sections.h"

namespace kelvane {

// What the windows show at the moment. The shell answers by object name.
class LiveTexts {
   public:
    virtual ~LiveTexts() = default;
    virtual QString caption(const FormSectionRow& form) const = 0;
    // A memo's lines with a line end between them.
    virtual QString text(const FormSectionRow& form, const KeyTarget& target) const = 0;
    virtual QString hint(const FormSectionRow& form, const KeyTarget& target) const = 0;
};

// The file's text, lines ended by CR LF. Differs from what the reader expects: see the notes in the source.
QString writeLanguage(const LangTable& table, const LiveTexts& live);

// The same to a file, in the code page of its name or else of LanguageIndex; whole or not at all.
FileResult saveLanguage(const QString& path, const Language& language, const LiveTexts& live);

}  // namespace kelvane

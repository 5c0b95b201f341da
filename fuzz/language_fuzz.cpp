// Language files of any content, in each code page: decode, read, and walk what the windows would show.
#include <cstddef>
#include <cstdint>

#include "localisation/language_file.h"
#include "localisation/language_sections.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace kelvane;
    if (size == 0) return 0;
    Language language;
    const QByteArray page = languageCodePage({}, data[0] % 12);
    const QByteArray bytes(reinterpret_cast<const char*>(data + 1), static_cast<qsizetype>(size - 1));
    const QString text = decodeLanguage(bytes, page);
    readLanguage(text, language);
    encodeLanguage(text.left(256), page);
    for (const FormSectionRow& row : formSections()) {
        const FormTexts& form = language.table.form(row.section);
        for (int number = 1; number <= form.Label.filled; ++number)
            shownText(row.Label.targets[static_cast<size_t>(number - 1)], form.Label.at(number));
    }
    return 0;
}

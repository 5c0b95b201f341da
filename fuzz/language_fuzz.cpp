// Language files of any content, in each code page: decode, read, and walk what the windows would show.
#include <cstddef>
#include <cstdint>
#include <vector>

#include "base/whole_file.h"
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

// The shipped files, each in its own code page.
extern "C" bool kelvaneFuzzSeed(int index, std::vector<uint8_t>* bytes) {
    using namespace kelvane;
    constexpr uint8_t Shipped[] = {1, 2, 3, 4, 9};
    if (index < 0 || index >= static_cast<int>(std::size(Shipped))) return false;
    const QString name = languageFileName(Shipped[index]);
    const FileContent file = readWhole(QStringLiteral(KELVANE_LANGUAGE_FOLDER "/") + name);
    if (!file.ok) return false;
    bytes->assign(1, Shipped[index]);
    bytes->insert(bytes->end(), file.bytes.begin(), file.bytes.end());
    return true;
}

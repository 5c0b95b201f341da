#include "base/text_8bit.h"

namespace kelvane {

QString withControlsEscaped(const QByteArray& bytes) {
    QString text;
    for (const char c : bytes) {
        const auto code = static_cast<unsigned char>(c);
        text += code < 33 ? QString::asprintf("\\x%02X", code) : QString(QLatin1Char(c));
    }
    return text;
}

}  // namespace kelvane

// "&" in a caption marks the letter which, pressed with Alt, leads to the control; "&&" is the character
// itself.
#pragma once

#include <QFontMetrics>
#include <QString>

namespace kelvane {

// As it is said and shown without the mark.
inline QString withoutMnemonic(const QString& caption) {
    QString plain;
    for (qsizetype i = 0; i < caption.size(); ++i) {
        if (caption[i] == u'&' && ++i == caption.size()) break;
        plain += caption[i];
    }
    return plain;
}

inline int captionWidth(const QFontMetrics& metrics, const QString& caption) {
    return metrics.size(Qt::TextSingleLine | Qt::TextShowMnemonic, caption).width();
}

}  // namespace kelvane

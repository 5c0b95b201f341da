#include "catalogue/parameter_record.h"

#include "link/number_text.h"

namespace kelvane {

QString addressText(int G, int N) { return IntToBaseStr(G, 16, 2) % IntToBaseStr(N, 16, 2); }

QString parameterNumberText(Family family, int G, int N) {
    if (family == Family::Rowan) return G == 1 ? IntToBaseStr(N + 256, 10, 4) : QString::number(N);
    return IntToBaseStr(G, 10, 2) % QLatin1Char('-') % IntToBaseStr(N, 10, N < 100 ? 2 : 3);
}

bool runSetOf(quint16 ParaAttr) { return (ParaAttr & 2) != 0; }

bool readOnlyOf(quint16 ParaAttr) { return (ParaAttr & 8) != 0; }

bool signedOf(Family family, quint16 ParaAttr) {
    return family == Family::Tilia && (ParaAttr & SignedBit) != 0;
}

int placesOf(Family family, quint16 ParaAttr) {
    if (family == Family::Aspen) return (ParaAttr & 1) != 0 ? 2 : 0;
    return (ParaAttr & 768) >> 8;
}

QString valueText(Family family, quint16 ParaAttr, quint16 word, int places) {
    const bool isSigned = signedOf(family, ParaAttr);
    // Kept: the sign counts as a digit when the point is placed, so -5 with one place is "-.5".
    return InsertDecimalPoint(QString::number(isSigned ? static_cast<qint16>(word) : int(word)), places);
}

std::optional<QString> registerWordOf(const QString& value) {
    const std::optional<int> number = withoutSeparatorToInt(value);
    if (!number || *number < LeastWord || *number > GreatestWord) return std::nullopt;
    return IntToBaseStr(*number, 16, 4);
}

}  // namespace kelvane

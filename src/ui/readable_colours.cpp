#include "ui/readable_colours.h"

#include <QPalette>
#include <algorithm>
#include <cmath>

namespace kelvane {
namespace {

// The tables' red on white has 4.0 and is meant to be read, so the limit lies below it.
constexpr double EnoughContrast = 3.5;
constexpr double SmallTextContrast = 4.5;

double linear(double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& c) {
    return 0.2126 * linear(c.redF()) + 0.7152 * linear(c.greenF()) + 0.0722 * linear(c.blueF());
}

QColor partnerOf(const QColor& told, const QColor& wanted) {
    if (contrast(told, wanted) >= EnoughContrast) return wanted;
    return contrast(told, Qt::black) > contrast(told, Qt::white) ? Qt::black : Qt::white;
}

}  // namespace

double contrast(const QColor& a, const QColor& b) {
    const auto [dark, light] = std::minmax({luminance(a), luminance(b)});
    return (light + 0.05) / (dark + 0.05);
}

ColourPair readablePair(const std::optional<QColor>& text, const std::optional<QColor>& background,
                        const QPalette& palette) {
    const QColor ink = palette.color(QPalette::Text);
    const QColor paper = palette.color(QPalette::Base);
    if (text && background) return {*text, *background};
    if (text) return {*text, partnerOf(*text, paper)};
    if (background) return {partnerOf(*background, ink), *background};
    return {ink, paper};
}

QColor readableText(const QColor& text, const QColor& background) {
    const QColor end =
        contrast(background, Qt::black) > contrast(background, Qt::white) ? Qt::black : Qt::white;
    QColor readable = text;
    for (double share = 0.05; contrast(readable, background) < SmallTextContrast && share <= 1; share += 0.05)
        readable = mix(text, end, share);
    return readable;
}

QColor mix(const QColor& a, const QColor& b, double share) {
    const auto between = [share](float x, float y) { return static_cast<float>(x + (y - x) * share); };
    return QColor::fromRgbF(between(a.redF(), b.redF()), between(a.greenF(), b.greenF()),
                            between(a.blueF(), b.blueF()), between(a.alphaF(), b.alphaF()));
}

}  // namespace kelvane

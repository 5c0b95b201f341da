#include "ui/readable_colours.h"

#include <QPalette>
#include <algorithm>
#include <cmath>

namespace kelvane {
namespace {

constexpr double EnoughContrast = 4.5;  // WCAG 2, AA
constexpr double LargestShade = 0.5;    // beyond it a colour is no longer itself

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

// text on paper, darker or lighter by as little as reading asks for; nothing when it would be another colour.
std::optional<QColor> shaded(const QColor& text, const QColor& paper) {
    const QColor away = contrast(paper, Qt::black) > contrast(paper, Qt::white) ? Qt::black : Qt::white;
    for (double share = 0; share <= LargestShade; share += 0.02) {
        const QColor shade = share > 0 ? mix(text, away, share) : text;
        if (contrast(shade, paper) >= EnoughContrast) return shade;
    }
    return std::nullopt;
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
    if (text && background) return {shaded(*text, *background).value_or(*text), *background};
    if (text) {
        if (const std::optional<QColor> shade = shaded(*text, paper)) return {*shade, paper};
        return {*text, partnerOf(*text, paper)};
    }
    if (background) return {partnerOf(*background, ink), *background};
    return {ink, paper};
}

QColor mix(const QColor& a, const QColor& b, double share) {
    const auto between = [share](float x, float y) { return static_cast<float>(x + (y - x) * share); };
    return QColor::fromRgbF(between(a.redF(), b.redF()), between(a.greenF(), b.greenF()),
                            between(a.blueF(), b.blueF()), between(a.alphaF(), b.alphaF()));
}

}  // namespace kelvane

// Text and background that can be read together. Engines give some colours as plain numbers; the half that
// is left open is chosen here so that the pair keeps its contrast in a light and in a dark palette.
#pragma once

#include <QColor>
#include <optional>

class QPalette;

namespace kelvane {

struct ColourPair {
    QColor text;
    QColor background;
};

// Contrast of two opaque colours as WCAG 2 counts it: 1 (equal) to 21 (black on white).
double contrast(const QColor& a, const QColor& b);

// The pair for what is given; without either the palette's Text on Base. A given colour is never changed.
ColourPair readablePair(const std::optional<QColor>& text, const std::optional<QColor>& background,
                        const QPalette& palette);

// A given text colour as it is painted on small text: moved towards black or white until it reaches 4.5.
QColor readableText(const QColor& text, const QColor& background);

// Half way between two colours at 0.5; 0 is the first, 1 the second.
QColor mix(const QColor& a, const QColor& b, double share);

}  // namespace kelvane

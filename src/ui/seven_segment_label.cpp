#include "ui/seven_segment_label.h"

#include <QPainter>
#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <utility>

#include "ui/accessible_kit.h"
#include "ui/readable_colours.h"

namespace kelvane {
namespace {

// Segments clockwise from the top, then the middle in two halves, the two uprights of the middle and the four
// diagonals.
enum Segment : quint16 {
    A = 1,
    B = 2,
    C = 4,
    D = 8,
    E = 16,
    F = 32,
    GL = 64,
    GR = 128,
    UpM = 256,
    LowM = 512,
    UpL = 1024,
    UpR = 2048,
    LowL = 4096,
    LowR = 8192,
};
constexpr quint16 G = GL | GR;

struct Glyph {
    char character;
    int segments;
};
constexpr Glyph glyphs[] = {
    {'0', A | B | C | D | E | F},
    {'1', B | C},
    {'2', A | B | G | E | D},
    {'3', A | B | C | D | G},
    {'4', F | G | B | C},
    {'5', A | F | G | C | D},
    {'6', A | F | E | D | C | G},
    {'7', A | B | C},
    {'8', A | B | C | D | E | F | G},
    {'9', A | B | C | D | F | G},
    {'-', G},
    {'_', D},
    {'=', G | D},
    {'/', UpR | LowL},
    {'+', G | UpM | LowM},
    {'\'', UpM},
    {'A', A | B | C | E | F | G},
    {'B', A | B | C | D | GR | UpM | LowM},
    {'C', A | D | E | F},
    {'D', A | B | C | D | UpM | LowM},
    {'E', A | D | E | F | G},
    {'F', A | E | F | G},
    {'G', A | C | D | E | F | GR},
    {'H', B | C | E | F | G},
    {'I', A | D | UpM | LowM},
    {'J', B | C | D | E},
    {'K', E | F | GL | UpR | LowR},
    {'L', D | E | F},
    {'M', B | C | E | F | UpL | UpR},
    {'N', B | C | E | F | UpL | LowR},
    {'O', A | B | C | D | E | F},
    {'P', A | B | E | F | G},
    {'Q', A | B | C | D | E | F | LowR},
    {'R', A | B | E | F | G | LowR},
    {'S', A | F | G | C | D},
    {'T', A | UpM | LowM},
    {'U', B | C | D | E | F},
    {'V', E | F | UpR | LowL},
    {'W', B | C | E | F | LowL | LowR},
    {'X', UpL | UpR | LowL | LowR},
    {'Y', B | C | D | F | G},
    {'Z', A | D | UpR | LowL},
    {'a', A | B | C | D | E | G},
    {'b', C | D | E | F | G},
    {'c', D | E | G},
    {'d', B | C | D | E | G},
    {'e', A | B | D | E | F | G},
    {'f', A | E | F | GL},
    {'g', A | B | C | D | F | G},
    {'h', C | E | F | G},
    {'i', C},
    {'j', B | C | D},
    {'k', UpM | LowM | UpR | LowR},
    {'l', E | F},
    {'m', C | E | G | LowM},
    {'n', C | E | G},
    {'o', C | D | E | G},
    {'p', A | B | E | F | G},
    {'q', A | B | C | F | G},
    {'r', E | G},
    {'s', A | F | G | C | D},
    {'t', D | E | F | G},
    {'u', C | D | E},
    {'v', E | LowL},
    {'w', C | E | LowL | LowR},
    {'x', UpL | UpR | LowL | LowR},
    {'y', B | C | D | F | G},
    {'z', A | D | UpR | LowL},
};

quint16 segmentsOf(QChar character) {
    const auto* found = std::find_if(std::begin(glyphs), std::end(glyphs), [=](const Glyph& glyph) {
        return QLatin1Char(glyph.character) == character;
    });
    return found == std::end(glyphs) ? quint16(0) : static_cast<quint16>(found->segments);
}

struct Stroke {
    Segment segment;
    QPointF from;
    QPointF to;
};

// One place as strokes in a box of 1 x 2.
const std::array<Stroke, 14>& strokes() {
    static const std::array<Stroke, 14> all{{
        {A, {0, 0}, {1, 0}},
        {B, {1, 0}, {1, 1}},
        {C, {1, 1}, {1, 2}},
        {D, {0, 2}, {1, 2}},
        {E, {0, 1}, {0, 2}},
        {F, {0, 0}, {0, 1}},
        {GL, {0, 1}, {0.5, 1}},
        {GR, {0.5, 1}, {1, 1}},
        {UpM, {0.5, 0}, {0.5, 1}},
        {LowM, {0.5, 1}, {0.5, 2}},
        {UpL, {0, 0}, {0.5, 1}},
        {UpR, {1, 0}, {0.5, 1}},
        {LowL, {0.5, 1}, {0, 2}},
        {LowR, {0.5, 1}, {1, 2}},
    }};
    return all;
}
constexpr quint16 SevenSegments = A | B | C | D | E | F | GL | GR;

// Draws a stroke with pointed ends, so that neighbours meet with a gap between them.
void drawStroke(QPainter& painter, QPointF from, QPointF to, double thick) {
    const QPointF along = to - from;
    const double length = std::hypot(along.x(), along.y());
    if (length <= thick) return;
    const QPointF unit = along / length;
    const QPointF side(-unit.y() * thick / 2, unit.x() * thick / 2);
    const QPointF head = unit * thick * 0.15;
    const QPointF neck = unit * thick * 0.65;
    const QPointF shape[] = {from + head, from + neck + side, to - neck + side,
                             to - head,   to - neck - side,   from + neck - side};
    painter.drawPolygon(shape, 6);
}

void drawPlace(QPainter& painter, const SegmentPlace& place, const QRectF& box, double thick,
               const QColor& lit, const QColor& dark) {
    const auto at = [&](QPointF p) {
        const double lean = (2 - p.y()) * box.height() * 0.035;
        return QPointF(box.left() + p.x() * box.width() + lean, box.top() + p.y() / 2 * box.height());
    };
    for (const bool second : {false, true}) {
        painter.setBrush(second ? lit : dark);
        for (const Stroke& stroke : strokes()) {
            const bool on = place.segments & stroke.segment;
            if (on != second || (!on && !(stroke.segment & SevenSegments))) continue;
            drawStroke(painter, at(stroke.from), at(stroke.to), thick);
        }
    }
    painter.setBrush(place.point ? lit : dark);
    painter.drawEllipse(at({1, 2}) + QPointF(thick * 1.4, 0), thick * 0.6, thick * 0.6);
}

}  // namespace

std::vector<SegmentPlace> segmentPlaces(const QString& text) {
    std::vector<SegmentPlace> places;
    for (const QChar character : text) {
        const bool point = character == QLatin1Char('.') || character == QLatin1Char(',');
        if (point && !places.empty() && !places.back().point) {
            places.back().point = true;
        } else {
            places.push_back({segmentsOf(character), point});
        }
    }
    return places;
}

SevenSegmentLabel::SevenSegmentLabel(QWidget* parent) : QWidget(parent) { installAccessibleKit(); }

void SevenSegmentLabel::setText(const QString& text) {
    if (text == m_text) return;
    m_text = text;
    // What looks the same is not painted again: blanks at the end, as drives pad their names with.
    std::vector<SegmentPlace> shown = segmentPlaces(text.trimmed());
    if (shown == m_shown) return;
    m_shown = std::move(shown);
    update();
}

void SevenSegmentLabel::setColor(const QColor& color) {
    if (color == m_color) return;
    m_color = color;
    update();
}

void SevenSegmentLabel::setPlaces(int places) {
    m_places = std::max(1, places);
    update();
}

void SevenSegmentLabel::setAlignment(Qt::Alignment alignment) {
    m_alignment = alignment;
    update();
}

QSize SevenSegmentLabel::sizeHint() const {
    const int high = fontMetrics().height() * 2;
    return {high * m_places * 2 / 3, high};
}

void SevenSegmentLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const int count = std::max(m_places, static_cast<int>(m_shown.size()));
    const double pitch = std::min(static_cast<double>(width()) / count, height() * 0.72);
    const double wide = pitch * 0.62;
    const double high = std::min(height() * 0.86, wide * 2.1);
    const double thick = std::max(1.4, wide * 0.2);
    const int free = count - static_cast<int>(m_shown.size());
    const int first = m_alignment & Qt::AlignLeft ? 0 : m_alignment & Qt::AlignHCenter ? free / 2 : free;
    QColor dark = m_color;
    dark.setAlpha(22);
    const double spare = width() - pitch * count;
    const double left = m_alignment & Qt::AlignLeft ? 0 : m_alignment & Qt::AlignHCenter ? spare / 2 : spare;
    for (int i = 0; i < count; ++i) {
        const bool inText = i >= first && i - first < static_cast<int>(m_shown.size());
        const SegmentPlace place = inText ? m_shown[static_cast<size_t>(i - first)] : SegmentPlace{};
        const QRectF box(left + i * pitch + pitch * 0.1, (height() - high) / 2, wide, high);
        drawPlace(painter, place, box, thick, m_color, dark);
    }
}

}  // namespace kelvane

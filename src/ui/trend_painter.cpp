#include "ui/trend_painter.h"

#include <QPainter>
#include <array>
#include <cmath>

#include "base/trend_time.h"
#include "ui/readable_colours.h"

namespace kelvane {

namespace {

constexpr int FarOff = 16000;  // pixels; beyond it a painter's arithmetic gets slow
constexpr double LeastContrast = 2;
constexpr int LabelGap = 4;

QPen flatPen(const QColor& colour, int width) { return {colour, double(width), Qt::SolidLine, Qt::FlatCap}; }

// The largest size in which a time fits between two grid lines. It is asked for at every record, so it is
// measured once a font.
QFont timeFont(const QPainter& painter, int room) {
    constexpr int Largest = 12;
    constexpr int Smallest = 7;
    static QString family;
    static int measuredRoom = 0;
    static int size = 0;
    QFont font = painter.font();
    if (room != measuredRoom || font.family() != family) {
        family = font.family();
        measuredRoom = room;
        for (size = Largest; size > Smallest; --size) {
            font.setPixelSize(size);
            if (QFontMetrics(font).horizontalAdvance(QStringLiteral("88:88:88")) <= room - 2) break;
        }
    }
    font.setPixelSize(size);
    return font;
}

QFont smallFont(const QPainter& painter) {
    QFont font = painter.font();
    font.setPixelSize(11);
    return font;
}

// Pixels of a column, the bottom one not included.
struct Rows {
    int top = 0;
    int bottom = 0;
    bool empty() const { return top >= bottom; }
};

// What of some rows is seen beside those that are painted over: a part above and a part below.
std::array<Rows, 2> outside(const Rows& rows, const Rows& covered) {
    if (covered.empty()) return {rows, Rows()};
    return {Rows{rows.top, std::min(rows.bottom, covered.top)},
            Rows{std::max(rows.top, covered.bottom), rows.bottom}};
}

// Both where they touch, else the longer one: what is not known as covered is painted twice.
Rows joined(const Rows& a, const Rows& b) {
    if (a.empty() || b.empty() || std::max(a.top, b.top) > std::min(a.bottom, b.bottom))
        return a.bottom - a.top > b.bottom - b.top ? a : b;
    return {std::min(a.top, b.top), std::max(a.bottom, b.bottom)};
}

}  // namespace

const QStaticText& ShapedTexts::of(const QString& text, const QFont& font) {
    const std::pair key(text, font);
    if (const QStaticText* known = m_texts.object(key)) return *known;
    auto* shaped = new QStaticText(text);
    shaped->setTextFormat(Qt::PlainText);
    shaped->prepare({}, font);
    m_texts.insert(key, shaped);
    return *shaped;
}

QColor channelColour(const TrendChannel& channel, const QColor& ground) {
    const QColor chosen = QColor::fromRgb(channel.color);
    if (contrast(chosen, ground) >= LeastContrast) return chosen;
    const QColor away = contrast(Qt::black, ground) > contrast(Qt::white, ground) ? Qt::black : Qt::white;
    QColor seen = chosen;
    for (double share = 0.1; share < 1 && contrast(seen, ground) < LeastContrast; share += 0.1)
        seen = mix(chosen, away, share);
    return seen;
}

int TrendPainter::yOfDigit(const TrendChannel& channel, quint16 digit) const {
    const double y = m_view.yOf(channel.shareOf(digit)) - 1;  // a value of 0 stands on the lowest row
    return static_cast<int>(std::lround(std::clamp<double>(y, -FarOff, FarOff)));
}

void TrendPainter::paintColumns(QPainter& painter, int fromColumn, int toColumn) const {
    fromColumn = std::max(fromColumn, 0);
    toColumn = std::min(toColumn, m_view.columns());
    if (fromColumn >= toColumn) return;
    painter.save();
    const QRect room(m_view.left() + fromColumn, m_view.top(), toColumn - fromColumn, m_view.rows());
    painter.setClipRect(room);
    painter.fillRect(room, m_look.background);
    paintGrid(painter, fromColumn, toColumn);
    if (m_view.recordsPerPixel() <= 1) {
        paintRecords(painter, fromColumn, toColumn);
    } else {
        paintColumnExtremes(painter, fromColumn, toColumn);
    }
    painter.restore();
}

void TrendPainter::paintGrid(QPainter& painter, int fromColumn, int toColumn) const {
    if (!m_look.opGrid) return;
    painter.setPen(QPen(m_look.ColorGrid, 0, Qt::DotLine));
    const qint64 step = std::max(m_look.GridXPixel, 1);
    const qint64 first = m_view.fromColumn() + fromColumn;
    for (qint64 column = (first + step - 1) / step * step; column < m_view.fromColumn() + toColumn;
         column += step) {
        const int x = m_view.left() + static_cast<int>(column - m_view.fromColumn());
        painter.drawLine(x, m_view.top(), x, m_view.bottom() - 1);
    }
    // The dots of a level line are one pattern over the whole plot, whatever part of it is drawn. Each with a
    // dotted pen would be the dearest part of a step.
    QVector<QPoint> dots;
    for (int step_y = 0; step_y <= m_look.GridYSteps; ++step_y) {
        const int y =
            std::min(m_view.top() + m_view.rows() * step_y / m_look.GridYSteps, m_view.bottom() - 1);
        for (int x = fromColumn; x < toColumn; ++x)
            if ((m_view.fromColumn() + x) % 4 == 0) dots += QPoint(m_view.left() + x, y);
    }
    painter.setPen(QPen(m_look.ColorGrid, 0));
    painter.drawPoints(dots.constData(), static_cast<int>(dots.size()));
}

// One record a pixel, or fewer: strokes from record to record.
void TrendPainter::paintRecords(QPainter& painter, int fromColumn, int toColumn) const {
    const TrendRecords& records = m_data.records;
    // One more on either side, since its stroke reaches in; broad strokes reach farther.
    const qint64 from = std::max<qint64>(m_view.firstOfColumn(m_view.fromColumn() + fromColumn - 3) - 1, 0);
    const qint64 to = std::min(m_view.firstOfColumn(m_view.fromColumn() + toColumn + 3) + 1, records.size());
    const auto xOf = [this](qint64 record) {
        return static_cast<int>(std::floor(m_view.xOf(record) + 1e-6));
    };
    if (m_look.opSeparator) {
        painter.setPen(QPen(m_look.ColorSeparator, 0));
        for (qint64 i = from; i < to; ++i)
            if (records[i].isSeparator() && (i == 0 || !records[i - 1].isSeparator()))
                painter.drawLine(xOf(i), m_view.top(), xOf(i), m_view.bottom() - 1);
    }
    QVector<QPoint> stroke;
    for (size_t c = 0; c < m_data.channels.size(); ++c) {
        const TrendChannel& channel = m_data.channels[c];
        if (!channel.visible) continue;
        painter.setPen(flatPen(channelColour(channel, m_look.background), channel.penWidth));
        stroke.clear();
        const auto drawStroke = [&] {
            if (stroke.size() == 1) painter.drawPoint(stroke[0]);
            if (stroke.size() > 1) painter.drawPolyline(stroke.constData(), static_cast<int>(stroke.size()));
            stroke.clear();
        };
        for (qint64 i = from; i < to; ++i) {
            if (records[i].isSeparator()) {
                drawStroke();
            } else {
                stroke.append({xOf(i), yOfDigit(channel, records[i].Ch[c])});
            }
        }
        drawStroke();
    }
}

// Several records a pixel: from the lowest to the highest of each column, with the last value of the column
// before unless a break lies between.
void TrendPainter::paintColumnExtremes(QPainter& painter, int fromColumn, int toColumn) const {
    const TrendRecords& records = m_data.records;
    struct Column {
        int x;
        qint64 before;  // the record in front, -1 for none or a break
        TrendExtremes extremes;
        Rows covered;  // by the strokes of later channels
    };
    std::vector<Column> columns;
    columns.reserve(static_cast<size_t>(toColumn - fromColumn));
    for (int column = fromColumn; column < toColumn; ++column) {
        const qint64 from = m_view.firstOfColumn(m_view.fromColumn() + column);
        const qint64 to = m_view.firstOfColumn(m_view.fromColumn() + column + 1);
        if (from >= records.size()) break;
        const bool joins = from > 0 && !records[from - 1].isSeparator() && !records[from].isSeparator();
        columns.push_back({m_view.left() + column, joins ? from - 1 : -1, records.extremes(from, to), {}});
    }
    if (m_look.opSeparator) {
        painter.setPen(QPen(m_look.ColorSeparator, 0));
        for (const Column& column : columns)
            if (column.extremes.breaks)
                painter.drawLine(column.x, m_view.top(), column.x, m_view.bottom() - 1);
    }
    // The channels from the last to the first, since each may leave out what a later one covers.
    std::vector<QVector<QLine>> strokes(m_data.channels.size());
    for (size_t c = m_data.channels.size(); c-- > 0;) {
        const TrendChannel& channel = m_data.channels[c];
        if (!channel.visible) continue;
        for (Column& column : columns) {
            if (!column.extremes.any) continue;
            quint16 low = column.extremes.low[c];
            quint16 high = column.extremes.high[c];
            if (column.before >= 0) {
                const quint16 before = records[column.before].Ch[c];
                low = std::min(low, before);
                high = std::max(high, before);
            }
            const Rows rows{yOfDigit(channel, high), yOfDigit(channel, low) + 1};
            // A broad stroke is seen beside the column as well.
            for (const Rows& part : outside(rows, channel.penWidth > 1 ? Rows() : column.covered))
                if (!part.empty()) strokes[c].append({column.x, part.bottom, column.x, part.top});
            column.covered = joined(column.covered, rows);
        }
    }
    for (size_t c = 0; c < strokes.size(); ++c) {
        const TrendChannel& channel = m_data.channels[c];
        painter.setPen(flatPen(channelColour(channel, m_look.background), channel.penWidth));
        painter.drawLines(strokes[c].constData(), static_cast<int>(strokes[c].size()));
    }
}

double TrendPainter::putText(QPainter& painter, double x, double top, const QString& text,
                             double share) const {
    const QStaticText& shaped = m_texts.of(text, painter.font());
    const double width = shaped.size().width();
    painter.drawStaticText(QPointF(x - share * width, top), shaped);
    return width;
}

void TrendPainter::paintLeftScale(QPainter& painter) const {
    if (!m_look.opLeftScale) return;
    painter.save();
    painter.setFont(smallFont(painter));
    const QFontMetrics metrics(painter.font());
    const int width = m_view.left() - LabelGap;
    if (!m_look.bands.isEmpty()) {
        const double share = 1.0 / static_cast<double>(m_look.bands.size());
        for (qsizetype band = 0; band < m_look.bands.size(); ++band) {
            const double middle = m_view.yOf((static_cast<double>(band) + 0.5) * share);
            painter.setPen(channelColour(m_data.channels[static_cast<size_t>(band)], m_look.background));
            putText(painter, width, middle - metrics.height() / 2.0, m_look.bands[band], 1);
        }
        painter.restore();
        return;
    }
    const auto at = static_cast<size_t>(std::clamp(m_look.LeftScaleCh, 1, int(m_data.channels.size())) - 1);
    const TrendChannel& channel = m_data.channels[at];
    painter.setPen(channelColour(channel, m_look.background));
    const int places = placesOfFormat(channel.ValueFormat);
    // As many as stand free of each other on a low plot.
    const int every = std::max(1, (metrics.height() * m_look.GridYSteps + m_view.rows() - 1) / m_view.rows());
    // Without a scale there is nothing to tell but the bottom.
    for (int step = channel.DigitalTo > 0 ? 0 : m_look.GridYSteps; step <= m_look.GridYSteps; ++step) {
        if ((m_look.GridYSteps - step) % every) continue;
        const int y = m_view.top() + m_view.rows() * step / m_look.GridYSteps;
        // Of the exact place, so that the grid's lines stand at round values.
        const double share =
            m_view.highShare() - (m_view.highShare() - m_view.lowShare()) * step / m_look.GridYSteps;
        QString text = QString::number(share * channel.ValueTo, 'f', places);
        if (text.startsWith(QLatin1Char('-')) && text.toDouble() == 0) text.remove(0, 1);
        text.replace(QLatin1Char('.'), m_look.decimalSep);
        // The lowest one stands clear of the times.
        const int top = std::min(y - metrics.height() / 2, m_view.bottom() + 2 - metrics.height());
        putText(painter, width, top, text, 1);
    }
    const QString head = QStringLiteral("Ch%1").arg(at + 1) %
                         (channel.ValueUnit.isEmpty() ? QString() : QStringLiteral(" ") % channel.ValueUnit);
    putText(painter, width, m_view.top() - 2 * metrics.height() + 2, head, 1);
    painter.restore();
}

void TrendPainter::paintTimes(QPainter& painter, int fromX, int toX) const {
    if (!m_look.opTime) return;
    painter.save();
    const int step = std::max(m_look.GridXPixel, 1);
    painter.setFont(timeFont(painter, step));
    painter.setPen(m_look.text);
    const qint64 first = (m_view.fromColumn() + step - 1) / step * step;
    for (qint64 column = first; column < m_view.fromColumn() + m_view.columns(); column += step) {
        const int x = m_view.left() + static_cast<int>(column - m_view.fromColumn());
        if (x + step < fromX || x - step > toX) continue;
        const qint64 record = m_view.firstOfColumn(column);
        if (record < 0 || record >= m_data.records.size()) continue;
        const qint64 sample = m_data.records.nearestSample(record, 50);
        const auto moment = sample < 0 ? std::nullopt : trendMoment(m_data.records[sample].Time);
        if (!moment) continue;
        putText(painter, x, m_view.bottom() + 2, moment->time.toString(QStringLiteral("HH:mm:ss")), 0.5);
    }
    painter.restore();
}

void TrendPainter::paintCaptions(QPainter& painter) const {
    if (!m_look.opCaption || !m_look.bands.isEmpty()) return;
    painter.save();
    painter.setFont(smallFont(painter));
    const QFontMetrics metrics(painter.font());
    const int gap = 3 * LabelGap;
    double x = m_view.left();
    int y = 2;
    for (const TrendChannel& channel : m_data.channels) {
        if (!channel.visible) continue;
        const double width = m_texts.of(channel.Caption, painter.font()).size().width();
        if (x > m_view.left() && x + width > m_view.right()) {
            x = m_view.left();
            y += metrics.height();
        }
        if (y + metrics.height() > m_view.top()) break;
        painter.setPen(channelColour(channel, m_look.background));
        putText(painter, x, y, channel.Caption, 0);
        x += width + gap;
    }
    painter.restore();
}

void TrendPainter::paintSheet(QPainter& painter) const {
    painter.fillRect(QRect(0, 0, m_view.width, m_view.height), m_look.background);
    paintColumns(painter, 0, m_view.columns());
    paintLeftScale(painter);
    paintTimes(painter, 0, m_view.width);
    paintCaptions(painter);
}

}  // namespace kelvane

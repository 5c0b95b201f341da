// Draws a trend on any painter: the plot's own canvas, a printed page, a picture. What is drawn where follows
// from the view; colours and options from the look.
#pragma once

#include <QCache>
#include <QColor>
#include <QFont>
#include <QRect>
#include <QStaticText>
#include <QStringList>

#include "base/trend_view.h"

class QPainter;

namespace kelvane {

struct TrendLook {
    QColor background = Qt::black;
    QColor text = QColor(0xC8, 0xC8, 0xC8);
    QColor ColorCursorLine = Qt::white;
    QColor ColorGrid = Qt::gray;
    QColor ColorSeparator = Qt::white;
    bool opCaption = true;
    bool opGrid = true;
    bool opCursorOnRec = true;
    bool opSeparator = true;
    bool opTime = true;
    bool opLeftScale = true;
    int GridXPixel = 50;
    int GridYSteps = 10;
    int LeftScaleCh = 1;
    QString decimalSep = QStringLiteral(".");
    // Names of equal bands from the bottom up, in the channels' colours, in place of a scale.
    QStringList bands;
};

// Colour of a channel on a ground: as chosen where it can be seen, else moved towards it.
QColor channelColour(const TrendChannel& channel, const QColor& ground);

// Texts as their font shapes them. That costs ten times what drawing does, and most stand there for many
// records.
class ShapedTexts {
   public:
    // Valid until the next call.
    const QStaticText& of(const QString& text, const QFont& font);

   private:
    QCache<std::pair<QString, QFont>, QStaticText> m_texts{100};
};

class TrendPainter {
   public:
    TrendPainter(const TrendData& data, const TrendView& view, const TrendLook& look, ShapedTexts& texts)
        : m_data(data), m_view(view), m_look(look), m_texts(texts) {}

    // Ground, grid, separators and curves of some of the view's columns, within the plot.
    void paintColumns(QPainter& painter, int fromColumn, int toColumn) const;
    void paintLeftScale(QPainter& painter) const;
    // Those that reach into some pixels.
    void paintTimes(QPainter& painter, int fromX, int toX) const;
    void paintCaptions(QPainter& painter) const;
    // All of it on its ground, for pages and pictures.
    void paintSheet(QPainter& painter) const;

    QRect plotRect() const { return {m_view.left(), m_view.top(), m_view.columns(), m_view.rows()}; }
    int yOfDigit(const TrendChannel& channel, quint16 digit) const;

   private:
    void paintGrid(QPainter& painter, int fromColumn, int toColumn) const;
    void paintRecords(QPainter& painter, int fromColumn, int toColumn) const;
    void paintColumnExtremes(QPainter& painter, int fromColumn, int toColumn) const;
    // With some share of it to the left of x; its width.
    double putText(QPainter& painter, double x, double top, const QString& text, double share) const;

    const TrendData& m_data;
    const TrendView& m_view;
    const TrendLook& m_look;
    ShapedTexts& m_texts;
};

}  // namespace kelvane

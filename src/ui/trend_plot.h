// A trend on the screen (AbTrend1, AbTrend2 of the Trend window; AbTrend1 of the Monitor): paints the records
// that a recorder holds, follows the newest while a run goes on, and tells what stands under the cursor.
// While recording only what scrolled in is painted. Whoever owns the recorder tells it what changed. By hand:
// the wheel zooms about the pointer, a drag pans, two measuring cursors and markers stand where they are put.
#pragma once

#include <QPixmap>
#include <QWidget>
#include <optional>

#include "ui/trend_painter.h"

namespace kelvane {

class TrendPlot : public QWidget {
    Q_OBJECT
    Q_PROPERTY(qint64 FirstDisplayedRec READ FirstDisplayedRec)
    Q_PROPERTY(qint64 LastDisplayedRec READ LastDisplayedRec)
    Q_PROPERTY(qint64 TotalRecords READ TotalRecords)
    Q_PROPERTY(bool opCursorOnRec READ opCursorOnRec WRITE setCursorOnRec)
    Q_PROPERTY(int LeftScaleCh READ LeftScaleCh WRITE SetLeftScaleCh)
   public:
    // The data outlive the plot.
    explicit TrendPlot(const TrendData& data, QWidget* parent = nullptr);

    // After a change call lookChanged().
    TrendLook look;
    struct Marker {
        qint64 record;
        QString name;
    };

    // What is shown.
    const TrendView& view() const { return m_view; }
    void PaintRecords(qint64 from, qint64 to);
    qint64 FirstDisplayedRec() const { return m_view.FirstDisplayedRec(); }
    qint64 LastDisplayedRec() const { return m_view.LastDisplayedRec(TotalRecords()); }
    qint64 TotalRecords() const { return m_data.records.size(); }
    // True: the view follows the newest record.
    void setFlow(bool on);
    bool follows() const { return m_follows; }
    void showSame(const TrendPlot& leader);
    void fit();             // the whole run
    void showEnd();         // and follow the newest record
    void showLastScreen();  // one record a pixel, without following
    void zoomAbout(double x, double factor);
    void pan(qint64 columns);

    // Value axis.
    void ZoomYIn() { changeAxis(&TrendView::ZoomYIn); }
    void ZoomYOut() { changeAxis(&TrendView::ZoomYOut); }
    void SetYDefault() { changeAxis(&TrendView::SetYDefault); }
    void MoveY(int pixels);
    int LeftScaleCh() const { return look.LeftScaleCh; }
    void SetLeftScaleCh(int channel);

    // Cursor.
    void SetCursorLine(int x, int y);
    void clearCursor();
    const ValueAtCursor& valueAtCursor() const { return m_value; }
    bool opCursorOnRec() const { return look.opCursorOnRec; }
    void setCursorOnRec(bool on);
    // Measuring cursors: records, or nothing.
    std::optional<qint64> cursorA() const { return m_a; }
    std::optional<qint64> cursorB() const { return m_b; }
    void setMeasure(std::optional<qint64> a, std::optional<qint64> b);
    void setMarkers(QList<Marker> markers);

    // What changed in the data.
    // One more at the end. With a leader the plot shows the same columns as that one.
    void recordsGrew(const TrendPlot* leader = nullptr);
    void recordsReplaced();  // anything else
    void lookChanged();      // scales, colours, visible channels

    // Some records, or the shown ones, on a ground of its own, for pages and pictures.
    void paintSheet(QPainter& painter, QSize size, const QColor& ground, qint64 from, qint64 to) const;
    void paintSheet(QPainter& painter, QSize size, const QColor& ground) const;
    QSize sizeHint() const override { return {710, 320}; }
    QSize minimumSizeHint() const override { return {TrendView::KeptWidth + 150, 90}; }

   Q_SIGNALS:
    void OnNewCursorPos(const ValueAtCursor& value);
    void mouseMoved(int x, int y);
    void viewChanged();
    void measureChanged();
    void markerWanted(qint64 record);

   protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

   private:
    enum class Drag { None, Pan, CursorA, CursorB };
    TrendPainter trendPainter() const { return {m_data, m_view, look, m_texts}; }
    void changeAxis(void (TrendView::*change)());
    void fitMargins();
    void viewMoved();
    void followCursor();
    void redrawAll();
    void drawCanvas();
    bool scrollCanvas(qint64 columns);
    int drawNewColumns(int to);  // the first of them
    int lastColumn() const;
    void paintCursor(QPainter& painter) const;
    void paintMarks(QPainter& painter, const TrendView& view, const QColor& ground) const;
    void moveMeasure(Drag which, qint64 record);
    Drag dragAt(double x) const;
    QRect plotRect() const { return trendPainter().plotRect(); }

    const TrendData& m_data;
    TrendView m_view;
    mutable ShapedTexts m_texts;
    QPixmap m_canvas;  // the plot without its overlay
    bool m_dirty = true;
    bool m_follows = false;
    qint64 m_paintedRecords = 0;
    std::optional<int> m_cursorX;
    ValueAtCursor m_value;
    std::optional<qint64> m_a;
    std::optional<qint64> m_b;
    QList<Marker> m_markers;
    Drag m_drag = Drag::None;
    QPoint m_dragFrom;
};

}  // namespace kelvane

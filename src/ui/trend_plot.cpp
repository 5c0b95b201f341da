#include "ui/trend_plot.h"

#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <cmath>

namespace kelvane {

namespace {

constexpr int NearPixels = 4;
constexpr double WheelStep = 1.25;
constexpr int AxisStep = 5;  // pixels
constexpr int CaptionRows = 2;
constexpr int SmallHeight = 14;  // of a line of small text
const QColor MeasureColour(0xFF, 0xB0, 0x00);
const QColor MarkerColour(0x9F, 0xD8, 0xFF);

}  // namespace

TrendPlot::TrendPlot(const TrendData& trendData, QWidget* parent) : QWidget(parent), m_data(trendData) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    fitMargins();
}

void TrendPlot::fitMargins() {
    const bool captions = look.opCaption && look.bands.isEmpty();
    m_view.width = width();
    m_view.height = height();
    m_view.topMargin = captions ? CaptionRows * SmallHeight + 6 : 6;
    m_view.bottomMargin = look.opTime ? SmallHeight + 6 : 4;
}

// ---- What is shown ----

void TrendPlot::redrawAll() {
    m_dirty = true;
    update();
}

void TrendPlot::viewMoved() {
    redrawAll();
    Q_EMIT viewChanged();
    followCursor();
}

// The cursor goes with its record; one beside the records, or whose record is out of sight, stays where it
// is.
void TrendPlot::followCursor() {
    if (!m_cursorX) return;
    const double x = m_view.xOf(m_value.RecordNo);
    if (m_value.DataValid && m_view.contains(x)) {
        m_cursorX = static_cast<int>(x);
    } else {
        SetCursorLine(*m_cursorX, m_view.top());
    }
}

void TrendPlot::PaintRecords(qint64 from, qint64 to) {
    m_follows = false;
    m_view.PaintRecords(from, to);
    viewMoved();
}

void TrendPlot::setFlow(bool on) {
    m_follows = false;
    if (on) showLastScreen();
    m_follows = on;
}

void TrendPlot::showLastScreen() {
    m_follows = false;
    m_view.PaintRecords(0, m_view.columns());
    m_view.showLastScreen(TotalRecords());
    viewMoved();
}

void TrendPlot::showSame(const TrendPlot& leader) {
    m_view.showSame(leader.m_view);
    viewMoved();
}

void TrendPlot::fit() { PaintRecords(0, std::max<qint64>(TotalRecords(), 1)); }

void TrendPlot::showEnd() {
    m_view.showLastScreen(TotalRecords());
    m_follows = true;
    viewMoved();
}

void TrendPlot::zoomAbout(double x, double factor) {
    m_view.zoomAbout(x, factor, TotalRecords());
    if (m_follows) m_view.showLastScreen(TotalRecords());
    viewMoved();
}

void TrendPlot::pan(qint64 columns) {
    m_view.pan(columns, TotalRecords());
    m_follows = false;
    viewMoved();
}

void TrendPlot::changeAxis(void (TrendView::*change)()) {
    (m_view.*change)();
    viewMoved();
}

void TrendPlot::MoveY(int pixels) {
    m_view.MoveY(pixels);
    viewMoved();
}

void TrendPlot::SetLeftScaleCh(int channel) {
    look.LeftScaleCh = channel;
    update();
}

void TrendPlot::lookChanged() {
    fitMargins();
    redrawAll();
}

// ---- What changed in the data ----

void TrendPlot::recordsReplaced() {
    if (m_follows || TotalRecords() == 0) m_view.showLastScreen(TotalRecords());
    const qint64 last = TotalRecords() - 1;
    const auto gone = [last](std::optional<qint64> record) { return record && *record > last; };
    if (gone(m_a) || gone(m_b)) setMeasure({}, {});
    if (last < 0) clearCursor();
    viewMoved();
}

void TrendPlot::recordsGrew(const TrendPlot* leader) {
    const qint64 from = m_view.fromColumn();
    if (leader) m_view.showSame(leader->m_view);
    if (m_follows) m_view.showLastScreen(TotalRecords());
    if (m_cursorX && (m_value.DataValid || m_view.recordAt(*m_cursorX) < TotalRecords())) followCursor();
    if (m_dirty || m_canvas.isNull() || !scrollCanvas(m_view.fromColumn() - from)) return redrawAll();
    // Scale and captions stay. Where nothing scrolled, only the new columns and their time are others.
    const bool scrolled = m_view.fromColumn() != from;
    const int newFrom = drawNewColumns(scrolled ? m_view.columns() : lastColumn());
    const int left = scrolled ? m_view.left() : m_view.left() + std::max(newFrom, 0);
    const int right = scrolled ? m_view.right() : m_view.left() + lastColumn() + 1;
    const int wider = scrolled ? m_view.left() : look.GridXPixel;
    // One rectangle, although the times need more width than the curves: only then is the canvas copied
    // straight.
    update(QRect(left - wider, m_view.top(), right - left + 2 * wider, m_view.rows() + m_view.bottomMargin));
}

int TrendPlot::lastColumn() const {
    const auto column = static_cast<qint64>(m_view.columnOf(std::max<qint64>(TotalRecords() - 1, 0)));
    return static_cast<int>(std::clamp<qint64>(column - m_view.fromColumn(), 0, m_view.columns()));
}

// False when it has to be painted anew: too far, or by no whole pixels of the screen.
bool TrendPlot::scrollCanvas(qint64 columns) {
    if (columns == 0) return true;
    const double device = static_cast<double>(columns) * m_canvas.devicePixelRatio();
    if (columns < 0 || columns >= m_view.columns() || device != std::floor(device)) return false;
    m_canvas.scroll(-static_cast<int>(device), 0, m_canvas.rect());
    return true;
}

// Up to a column and the width of a stroke.
int TrendPlot::drawNewColumns(int to) {
    const auto columnOf = [this](qint64 record) {
        return static_cast<int>(static_cast<qint64>(m_view.columnOf(std::max<qint64>(record, 0))) -
                                m_view.fromColumn());
    };
    int widest = 1;
    for (const TrendChannel& channel : m_data.channels) widest = std::max(widest, channel.penWidth);
    QPainter painter(&m_canvas);
    painter.translate(-m_view.left(), -m_view.top());
    // Columns that scrolled in beyond the last record are bare ground.
    const int from = columnOf(m_paintedRecords - 1) - widest;
    trendPainter().paintColumns(painter, from, std::min(to + widest + 1, m_view.columns()));
    m_paintedRecords = TotalRecords();
    return from;
}

void TrendPlot::drawCanvas() {
    const qreal ratio = devicePixelRatioF();
    const QSize wanted = (QSizeF(m_view.columns(), m_view.rows()) * ratio).toSize();
    if (m_canvas.size() != wanted) m_canvas = QPixmap(wanted);
    m_canvas.setDevicePixelRatio(ratio);
    QPainter painter(&m_canvas);
    painter.translate(-m_view.left(), -m_view.top());
    trendPainter().paintColumns(painter, 0, m_view.columns());
    m_paintedRecords = TotalRecords();
    m_dirty = false;
}

// ---- Painting ----

void TrendPlot::paintEvent(QPaintEvent* event) {
    if (m_dirty) drawCanvas();
    QPainter painter(this);
    const TrendPainter trend = trendPainter();
    const QRect plot = trend.plotRect();
    for (const QRect& part : event->region().subtracted(plot)) painter.fillRect(part, look.background);
    painter.drawPixmap(plot.topLeft(), m_canvas);
    const QRect& room = event->rect();
    if (room.bottom() >= m_view.bottom()) trend.paintTimes(painter, room.left(), room.right());
    if (room.left() < m_view.left()) trend.paintLeftScale(painter);
    if (room.top() < m_view.top()) trend.paintCaptions(painter);
    painter.save();
    paintMarks(painter, m_view, look.background);
    paintCursor(painter);
    painter.restore();
    if (hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 1));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void TrendPlot::paintCursor(QPainter& painter) const {
    if (!m_cursorX) return;
    const bool snaps =
        look.opCursorOnRec && m_value.DataValid && m_view.contains(m_view.xOf(m_value.RecordNo));
    const int x = snaps ? static_cast<int>(m_view.xOf(m_value.RecordNo)) : *m_cursorX;
    painter.setPen(QPen(look.ColorCursorLine, 1));
    painter.drawLine(x, m_view.top(), x, m_view.bottom() - 1);
}

// Markers and measuring cursors, on the screen as on a page.
void TrendPlot::paintMarks(QPainter& painter, const TrendView& view, const QColor& ground) const {
    painter.setClipRect(QRect(view.left(), 0, view.columns(), view.bottom()));
    const auto mark = [&](qint64 record, const QString& name, int baseline, QColor colour,
                          Qt::PenStyle style) {
        if (!view.contains(view.xOf(record))) return;
        if (ground.lightness() > 128) colour = colour.darker(250);
        const int x = static_cast<int>(view.xOf(record));
        painter.setPen(QPen(colour, 1, style));
        painter.drawLine(x, view.top(), x, view.bottom() - 1);
        painter.setPen(colour);
        painter.drawText(x + 3, baseline, name);
    };
    for (const Marker& marker : m_markers)
        mark(marker.record, marker.name, view.bottom() - 5, MarkerColour, Qt::DashDotLine);
    const int top = view.top() + SmallHeight;
    if (m_a) mark(*m_a, QStringLiteral("A"), top, MeasureColour, Qt::DashLine);
    if (m_b) mark(*m_b, QStringLiteral("B"), top, MeasureColour, Qt::DashLine);
}

void TrendPlot::paintSheet(QPainter& painter, QSize size, const QColor& ground) const {
    paintSheet(painter, size, ground, m_view.FirstDisplayedRec(),
               m_view.firstOfColumn(m_view.fromColumn() + m_view.columns()));
}

void TrendPlot::paintSheet(QPainter& painter, QSize size, const QColor& ground, qint64 from,
                           qint64 to) const {
    TrendView view = m_view;
    TrendLook sheet = look;
    view.width = size.width();
    view.height = size.height();
    view.PaintRecords(std::max<qint64>(from, 0), std::max(from, to));
    sheet.background = ground;
    if (ground.lightness() > 128) {
        sheet.text = Qt::black;
        sheet.ColorGrid = Qt::lightGray;
        sheet.ColorSeparator = Qt::darkGray;
    }
    TrendPainter(m_data, view, sheet, m_texts).paintSheet(painter);
    painter.save();
    paintMarks(painter, view, ground);
    painter.restore();
}

void TrendPlot::resizeEvent(QResizeEvent* event) {
    fitMargins();
    if (m_follows) m_view.showLastScreen(TotalRecords());
    m_dirty = true;
    QWidget::resizeEvent(event);
    Q_EMIT viewChanged();
}

void TrendPlot::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) redrawAll();
    QWidget::changeEvent(event);
}

// ---- Cursor, measuring cursors, markers ----

void TrendPlot::SetCursorLine(int x, int) {
    m_cursorX = x;
    m_value = m_view.valueAt(x, m_data);
    update(plotRect());
    Q_EMIT OnNewCursorPos(m_value);
}

void TrendPlot::clearCursor() {
    if (!m_cursorX) return;
    m_cursorX.reset();
    m_value = {};
    update(plotRect());
    Q_EMIT OnNewCursorPos(m_value);
}

void TrendPlot::setCursorOnRec(bool on) {
    look.opCursorOnRec = on;
    update(plotRect());
}

void TrendPlot::setMeasure(std::optional<qint64> a, std::optional<qint64> b) {
    m_a = a;
    m_b = b;
    update();
    Q_EMIT measureChanged();
}

void TrendPlot::setMarkers(QList<Marker> markers) {
    m_markers = std::move(markers);
    update();
}

void TrendPlot::moveMeasure(Drag which, qint64 record) {
    if (TotalRecords() == 0) return;
    record = std::clamp<qint64>(record, 0, TotalRecords() - 1);
    which == Drag::CursorA ? setMeasure(record, m_b) : setMeasure(m_a, record);
}

TrendPlot::Drag TrendPlot::dragAt(double x) const {
    const auto isNear = [&](std::optional<qint64> record) {
        return record && std::abs(m_view.xOf(*record) - x) <= NearPixels;
    };
    if (isNear(m_a)) return Drag::CursorA;
    return isNear(m_b) ? Drag::CursorB : Drag::Pan;
}

// ---- Hand ----

void TrendPlot::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    m_dragFrom = event->position().toPoint();
    m_drag = event->modifiers() & Qt::ControlModifier ? Drag::CursorA
             : event->modifiers() & Qt::ShiftModifier ? Drag::CursorB
                                                      : dragAt(event->position().x());
    if (m_drag != Drag::Pan) moveMeasure(m_drag, m_view.recordAt(event->position().x()));
}

// The keys act at the cursor, so the plot has them as soon as the mouse has set it.
void TrendPlot::mouseMoveEvent(QMouseEvent* event) {
    if (isActiveWindow()) setFocus(Qt::MouseFocusReason);
    const QPoint at = event->position().toPoint();
    if (m_drag == Drag::CursorA || m_drag == Drag::CursorB) {
        moveMeasure(m_drag, m_view.recordAt(at.x()));
    } else if (m_drag == Drag::Pan && at.x() != m_dragFrom.x()) {
        setCursor(Qt::ClosedHandCursor);
        pan(m_dragFrom.x() - at.x());
        m_dragFrom = at;
    } else if (m_drag == Drag::None) {
        setCursor(dragAt(at.x()) == Drag::Pan ? Qt::ArrowCursor : Qt::SplitHCursor);
    }
    // Linked cursors first, so that the labels they share show this plot's record.
    Q_EMIT mouseMoved(at.x(), at.y());
    SetCursorLine(at.x(), at.y());
}

void TrendPlot::mouseReleaseEvent(QMouseEvent*) {
    m_drag = Drag::None;
    unsetCursor();
}

void TrendPlot::mouseDoubleClickEvent(QMouseEvent* event) {
    if (TotalRecords() > 0 && m_view.contains(event->position().x()))
        Q_EMIT markerWanted(
            std::clamp<qint64>(m_view.recordAt(event->position().x()), 0, TotalRecords() - 1));
}

void TrendPlot::leaveEvent(QEvent* event) {
    QWidget::leaveEvent(event);
    m_drag = Drag::None;
}

void TrendPlot::wheelEvent(QWheelEvent* event) {
    const int turned = event->angleDelta().y();
    if (turned == 0) return event->ignore();
    zoomAbout(event->position().x(), std::pow(WheelStep, -turned / 120.0));
    event->accept();
}

void TrendPlot::keyPressEvent(QKeyEvent* event) {
    const double middle = m_view.left() + m_view.columns() / 2.0;
    const double under = m_cursorX ? *m_cursorX : middle;
    const bool cursor = event->modifiers() & Qt::ControlModifier;
    const auto step = [&](int columns) {
        if (cursor) return pan(columns < 0 ? -m_view.columns() / 2 : m_view.columns() / 2);
        const int pixels = std::max(1, static_cast<int>(std::lround(1 / m_view.recordsPerPixel())));
        const int x = std::clamp(static_cast<int>(under) + (columns < 0 ? -pixels : pixels), m_view.left(),
                                 m_view.right() - 1);
        Q_EMIT mouseMoved(x, m_view.top());
        SetCursorLine(x, m_view.top());
    };
    switch (event->key()) {
        case Qt::Key_Left: return step(-1);
        case Qt::Key_Right: return step(1);
        case Qt::Key_PageUp: return pan(-m_view.columns());
        case Qt::Key_PageDown: return pan(m_view.columns());
        case Qt::Key_Home: return pan(-m_view.fromColumn());
        case Qt::Key_End: return showEnd();
        case Qt::Key_Up: return MoveY(AxisStep);
        case Qt::Key_Down: return MoveY(-AxisStep);
        case Qt::Key_Plus:
        case Qt::Key_Equal: return zoomAbout(under, 1 / WheelStep);
        case Qt::Key_Minus: return zoomAbout(under, WheelStep);
        case Qt::Key_F: return fit();
        case Qt::Key_A: return moveMeasure(Drag::CursorA, m_view.recordAt(under));
        case Qt::Key_B: return moveMeasure(Drag::CursorB, m_view.recordAt(under));
        case Qt::Key_M:
            if (m_value.DataValid) Q_EMIT markerWanted(m_value.RecordNo);
            return;
        default: QWidget::keyPressEvent(event);
    }
}

}  // namespace kelvane

#include "parameters/report/page_view_form.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

namespace kelvane {

namespace {

constexpr int Gap = 12;  // pixels around a page

}  // namespace

PageView::PageView(QWidget* parent) : QAbstractScrollArea(parent) {
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setBackgroundRole(QPalette::Mid);
    viewport()->setAutoFillBackground(true);
}

void PageView::setPages(std::unique_ptr<ReportPages> pages, QSizeF paper, QMarginsF margins) {
    m_pages = std::move(pages);
    m_paper = paper;
    m_margins = margins;
    fitToWidth();
    viewport()->update();
    Q_EMIT currentPageChanged();
}

double PageView::pageStep() const { return pageHeight() + Gap; }

QRectF PageView::placeOf(int index) const {
    return {double(Gap), Gap + index * pageStep() - verticalScrollBar()->value(), m_paper.width() * m_scale,
            pageHeight()};
}

int PageView::currentPage() const {
    if (pageCount() == 0) return 0;
    const QScrollBar* bar = verticalScrollBar();
    if (bar->maximum() > 0 && bar->value() == bar->maximum()) return pageCount();
    return std::clamp(static_cast<int>((bar->value() + pageHeight() / 2) / pageStep()) + 1, 1, pageCount());
}

void PageView::setCurrentPage(int page) {
    verticalScrollBar()->setValue(
        static_cast<int>(std::clamp(page - 1, 0, std::max(0, pageCount() - 1)) * pageStep()));
}

void PageView::fitToWidth() {
    if (!m_pages) return;
    const int page = currentPage();
    m_scale = std::max(1.0, viewport()->width() - 2.0 * Gap) / std::max(1.0, m_paper.width());
    QScrollBar* bar = verticalScrollBar();
    bar->setPageStep(viewport()->height());
    bar->setSingleStep(fontMetrics().height() * 3);
    bar->setRange(0, std::max(0, static_cast<int>(pageCount() * pageStep() + Gap) - viewport()->height()));
    if (page > 1) setCurrentPage(page);
}

void PageView::paintEvent(QPaintEvent*) {
    if (!m_pages) return;
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    const int first = std::max(0, static_cast<int>(verticalScrollBar()->value() / pageStep()));
    for (int i = first; i < pageCount() && placeOf(i).top() < viewport()->height(); ++i) {
        const QRectF place = placeOf(i);
        painter.fillRect(place, Qt::white);
        painter.save();
        painter.translate(place.topLeft());
        painter.scale(m_scale, m_scale);
        painter.translate(m_margins.left(), m_margins.top());
        m_pages->paint(painter, i);
        painter.restore();
    }
}

void PageView::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    fitToWidth();
    Q_EMIT currentPageChanged();
}

void PageView::scrollContentsBy(int, int) {
    viewport()->update();
    Q_EMIT currentPageChanged();
}

void PageView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Home) return setCurrentPage(1);
    if (event->key() == Qt::Key_End) return setCurrentPage(pageCount());
    QAbstractScrollArea::keyPressEvent(event);
}

}  // namespace kelvane

// The pages of a report one below the other, as wide as the view. A page is laid out and painted when it
// comes into sight, so that a report of a thousand pages opens as quickly as one of two.
#pragma once

#include <QAbstractScrollArea>
#include <QMarginsF>
#include <memory>

#include "parameters/report/report_pages_form.h"

namespace kelvane {

class PageView : public QAbstractScrollArea {
    Q_OBJECT
   public:
    explicit PageView(QWidget* parent = nullptr);

    // Sizes in report units; margins stand around the printable room of the pages.
    void setPages(std::unique_ptr<ReportPages> pages, QSizeF paper, QMarginsF margins);

    int pageCount() const { return m_pages ? m_pages->count() : 0; }
    int currentPage() const;  // from 1: the one at the top of the view, the last one at the end
    void setCurrentPage(int page);

   Q_SIGNALS:
    void currentPageChanged();

   protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent* event) override;

   private:
    void fitToWidth();
    double pageHeight() const { return m_paper.height() * m_scale; }
    double pageStep() const;  // from the top of a page to that of the next
    QRectF placeOf(int index) const;

    std::unique_ptr<ReportPages> m_pages;
    QSizeF m_paper;
    QMarginsF m_margins;
    double m_scale = 1;  // pixels a report unit
};

}  // namespace kelvane

// TPrintForm: the part of a trend that is to be printed, on paper as it will come out, with its first and
// last record.
#pragma once

#include <QDialog>
#include <QPrinter>
#include <memory>

class QComboBox;
class QLineEdit;
class QPainter;
class QScrollArea;

namespace kelvane {

class TrendPlot;

// A page with the trend on white ground.
class TrendPreview : public QWidget {
    Q_OBJECT
   public:
    explicit TrendPreview(QWidget* parent = nullptr);
    void setPlot(const TrendPlot* plot) { m_plot = plot; }
    void SetRecFrom(qint64 record);
    void SetRecTo(qint64 record);
    void SetPreviewZoom(double factor);
    // Prints with its left top corner there.
    void PrintTrend(QPrinter& printer, int left, int top) const;

   protected:
    void paintEvent(QPaintEvent* event) override;

   private:
    void paint(QPainter& painter, QSize size) const;
    void resizeToPaper();
    const TrendPlot* m_plot = nullptr;
    qint64 m_from = 0;
    qint64 m_to = 0;
    double m_zoom = 1;
    static constexpr QSize Paper{1122, 793};  // at 96 dots an inch
};

class TPrintForm : public QDialog {
    Q_OBJECT
   public:
    explicit TPrintForm(QWidget* parent = nullptr);

    // Takes the range that the plot shows; to be called before it is shown.
    void prepare(TrendPlot& plot);

   private:
    void takeRange();
    void ZoomComboBoxChange();
    void PrintTransparentButtonClick();
    void done(int result) override;

    TrendPreview* m_preview;
    QLineEdit* FirstRecEdit;
    QLineEdit* LastRecEdit;
    QComboBox* ZoomComboBox;
    std::unique_ptr<QPrinter> m_printer;  // asking for printers takes time, so it waits for the first use
};

}  // namespace kelvane

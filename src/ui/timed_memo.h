// A read-only memo that grows at its end, with a time of day beside each line. The times stand in a margin of
// their own and are no part of the text.
#pragma once

#include <QPlainTextEdit>
#include <QTime>

namespace kelvane {

class TimedMemo : public QPlainTextEdit {
    Q_OBJECT
   public:
    explicit TimedMemo(QWidget* parent = nullptr);

    struct Line {
        QString text;
        QTime at;
    };
    void appendLines(const QList<Line>& lines);
    // The oldest lines go until so many are left; who reads further up keeps the line in place.
    void keepNewest(int count);
    void clearLines();
    // Of the line under the caret and, with back, of one that stands so many above it; null where there is
    // none.
    Line lineAtCaret(int back = 0) const;

   protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

   private:
    void paintTimes();
    void fitMargin();
    QWidget* m_margin;
    bool m_any = false;
};

}  // namespace kelvane

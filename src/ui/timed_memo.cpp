#include "ui/timed_memo.h"

#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>

namespace kelvane {

namespace {

struct LineTime final : QTextBlockUserData {
    explicit LineTime(QTime time) : at(time) {}
    QTime at;
};

const QString TimeFormat = QStringLiteral("hh:mm:ss.zzz");

}  // namespace

TimedMemo::TimedMemo(QWidget* parent) : QPlainTextEdit(parent), m_margin(new QWidget(this)) {
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setLineWrapMode(NoWrap);
    setUndoRedoEnabled(false);
    m_margin->installEventFilter(this);
    connect(this, &QPlainTextEdit::updateRequest, m_margin, qOverload<>(&QWidget::update));
    fitMargin();
}

void TimedMemo::appendLines(const QList<Line>& lines) {
    QScrollBar* bar = verticalScrollBar();
    const bool atEnd = bar->value() >= bar->maximum();
    QTextCursor cursor(document());
    cursor.movePosition(QTextCursor::End);
    cursor.beginEditBlock();
    for (const Line& line : lines) {
        if (m_any) cursor.insertBlock();
        m_any = true;
        cursor.insertText(line.text);
        cursor.block().setUserData(new LineTime(line.at));
    }
    cursor.endEditBlock();
    if (atEnd) bar->setValue(bar->maximum());
}

void TimedMemo::keepNewest(int count) {
    const int gone = blockCount() - std::max(count, 1);
    if (gone <= 0) return;
    QScrollBar* bar = verticalScrollBar();
    const bool atEnd = bar->value() >= bar->maximum();
    const int seen = bar->value() - gone;
    QTextCursor cursor(document());
    cursor.movePosition(QTextCursor::NextBlock, QTextCursor::KeepAnchor, gone);
    cursor.removeSelectedText();
    bar->setValue(atEnd ? bar->maximum() : std::max(seen, 0));
}

void TimedMemo::clearLines() {
    clear();
    m_any = false;
}

TimedMemo::Line TimedMemo::lineAtCaret(int back) const {
    const QTextBlock block = document()->findBlockByNumber(textCursor().blockNumber() - back);
    const auto* time = block.isValid() ? static_cast<const LineTime*>(block.userData()) : nullptr;
    return {block.text(), time ? time->at : QTime()};
}

void TimedMemo::fitMargin() {
    const int width = fontMetrics().horizontalAdvance(QStringLiteral("00:00:00.000")) + 10;
    setViewportMargins(width, 0, 0, 0);
    m_margin->setGeometry(contentsRect().left(), contentsRect().top(), width, contentsRect().height());
}

void TimedMemo::resizeEvent(QResizeEvent* event) {
    QPlainTextEdit::resizeEvent(event);
    fitMargin();
}

void TimedMemo::changeEvent(QEvent* event) {
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange) fitMargin();
}

bool TimedMemo::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_margin && event->type() == QEvent::Paint) paintTimes();
    return QPlainTextEdit::eventFilter(watched, event);
}

void TimedMemo::paintTimes() {
    QPainter painter(m_margin);
    painter.fillRect(m_margin->rect(), palette().color(QPalette::AlternateBase));
    QColor ink = palette().color(QPalette::Text);
    ink.setAlphaF(0.7F);
    painter.setPen(ink);
    painter.setFont(font());
    const double bottom = viewport()->height();
    double top = 0;
    for (QTextBlock block = firstVisibleBlock(); block.isValid() && top < bottom; block = block.next()) {
        const QRectF place = blockBoundingGeometry(block).translated(contentOffset());
        top = place.bottom();
        if (const auto* time = static_cast<LineTime*>(block.userData()))
            painter.drawText(QRectF(4, place.top(), m_margin->width() - 8, place.height()), Qt::AlignLeft,
                             time->at.toString(TimeFormat));
    }
}

}  // namespace kelvane

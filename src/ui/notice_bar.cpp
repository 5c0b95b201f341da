#include "ui/notice_bar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "ui/icons.h"

namespace kelvane {

NoticeBar::NoticeBar(QWidget* parent)
    : QFrame(parent), m_text(new QLabel(this)), m_row(new QHBoxLayout(this)) {
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    setForegroundRole(QPalette::ToolTipText);
    auto* sign = new QLabel(this);
    const int size = fontMetrics().height() + 2;
    sign->setPixmap(icon(Icon::About).pixmap(size, size));
    m_text->setTextFormat(Qt::PlainText);
    m_text->setForegroundRole(QPalette::ToolTipText);
    m_text->setWordWrap(true);
    m_row->setContentsMargins(8, 3, 8, 3);
    m_row->addWidget(sign);
    m_row->addWidget(m_text, 1);
    hide();
}

void NoticeBar::offer(const QString& text, const QList<Answer>& answers) {
    withdraw();
    setText(text);
    for (const Answer& answer : answers) {
        auto* button = new QPushButton(answer.caption, this);
        // Copied: the answer may bring the next offer, which takes this button away.
        connect(button, &QPushButton::clicked, this, [given = answer.given] { given(); });
        m_row->addWidget(button);
        m_buttons.append(button);
    }
    show();
}

void NoticeBar::setText(const QString& text) {
    m_text->setText(text);
    setAccessibleName(text);
}

void NoticeBar::withdraw() {
    for (QWidget* button : m_buttons) {
        button->hide();
        button->deleteLater();
    }
    m_buttons.clear();
    hide();
}

}  // namespace kelvane

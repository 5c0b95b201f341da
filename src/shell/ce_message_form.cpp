#include "shell/ce_message_form.h"

#include <QApplication>
#include <QByteArrayView>
#include <QLabel>
#include <QVBoxLayout>

namespace kelvane {

namespace {

// The tool's own window in front. Boxes and file dialogs go away with their question, and would take a child
// with them.
QWidget* lastingModalWindow() {
    QWidget* window = QApplication::activeModalWidget();
    while (window && !QByteArrayView(window->metaObject()->className()).startsWith("kelvane::"))
        window = window->parentWidget() ? window->parentWidget()->window() : nullptr;
    return window;
}

}  // namespace

TCEmessageForm::TCEmessageForm(RequestScheduler& link, QWidget* parent)
    : QDialog(parent), m_link(link), m_home(parent), m_text(new QLabel(this)) {
    setObjectName(QStringLiteral("TCEmessageForm"));
    m_text->setObjectName(QStringLiteral("Label1"));
    m_text->setTextFormat(Qt::PlainText);
    auto* column = new QVBoxLayout(this);
    const int room = fontMetrics().height();
    column->setContentsMargins(2 * room, 2 * room, 2 * room, 2 * room);
    column->addWidget(m_text);
    connect(&m_link, &RequestScheduler::changed, this, &TCEmessageForm::showRecord);
}

void TCEmessageForm::showRecord() {
    const NoticeRecord& notice = m_link.Notice;
    if (notice.TCEmessageFormShown) {
        m_text->setText(notice.CEmessageText);
        setWindowTitle(notice.CEmessageTitle);
        if (!isVisible()) showOver(lastingModalWindow());
    } else if (isVisible()) {
        hide();
        setParent(m_home, windowFlags());
    }
}

void TCEmessageForm::showOver(QWidget* window) {
    QWidget* over = window && window != this ? window : m_home;
    if (over != parentWidget()) setParent(over, windowFlags());
    setAttribute(Qt::WA_ShowWithoutActivating);
    adjustSize();
    show();
    raise();
}

void TCEmessageForm::done(int result) {
    QDialog::done(result);
    if (!m_link.Notice.TCEmessageFormShown) return;
    m_link.Notice.TCEmessageFormShown = false;
    m_link.notifyChanged();
}

}  // namespace kelvane

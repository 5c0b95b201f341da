// A line over a window's content that offers something without stopping anybody: a text and buttons. It goes
// when it has been answered.
#pragma once

#include <QFrame>
#include <functional>

class QHBoxLayout;
class QLabel;

namespace kelvane {

class NoticeBar : public QFrame {
    Q_OBJECT
   public:
    explicit NoticeBar(QWidget* parent = nullptr);

    struct Answer {
        QString caption;
        std::function<void()> given;
    };
    // Shows the text with a button for each answer, in place of what it offered before.
    void offer(const QString& text, const QList<Answer>& answers);
    // Another text over the same buttons.
    void setText(const QString& text);
    void withdraw();

   private:
    QLabel* m_text;
    QHBoxLayout* m_row;
    QList<QWidget*> m_buttons;
};

}  // namespace kelvane

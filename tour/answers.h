// Answers of the tour to the windows that wait for one in a loop of their own: boxes, file dialogs and the
// value editor. They are expected in their order, each is answered once by its own controls, and one that
// nobody expected fails the tour. The walk checks that all have come.
#pragma once

#include <QList>
#include <QMessageBox>
#include <QPointer>
#include <QTimer>
#include <deque>
#include <functional>

#include "tour/script.h"

class QFileDialog;

namespace kelvane::tour {

class Answers : public QObject {
    Q_OBJECT
   public:
    explicit Answers(Script& script);

    // A box whose text contains this; without a picture's name none is kept.
    void expectBox(const QString& text, QMessageBox::StandardButton press, const QString& picture = {});
    // A file dialog: the path is typed and accepted.
    void expectFile(const QString& path, const QString& picture = {});
    // A window by its object name; hand does everything, closing it included.
    void expectWindow(const QString& objectName, const std::function<void(QWidget&)>& hand);

    bool allCame() const { return m_expected.empty() && m_answering == 0; }
    QString missing() const;

   private:
    struct Expected {
        QString what;
        QString picture;
        std::function<bool(QWidget&)> isIt;
        std::function<void(QWidget&)> answer;
    };
    void look();
    void answer(QWidget* window);
    void press(QMessageBox& box, QMessageBox::StandardButton button);
    void typePath(QFileDialog& dialog, const QString& path);

    Script& m_script;
    QTimer m_timer;
    std::deque<Expected> m_expected;
    QList<QPointer<QWidget>> m_seen;
    int m_answering = 0;
};

}  // namespace kelvane::tour

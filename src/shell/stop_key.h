// The stop key, F12: presses STOP of the window on top that has one, in whatever window or box of the program
// the person is. It is no safety function: it takes the same way over the line as the key on the screen.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <vector>

namespace kelvane {

class StopKey : public QObject {
    Q_OBJECT
   public:
    static constexpr Qt::Key Key = Qt::Key_F12;

    StopKey();  // listens to the whole application

    // A window with a STOP; ready tells whether it can be pressed at this moment.
    void add(QWidget& window, std::function<bool()> ready, std::function<void()> press);
    bool ready() const { return onTop() != nullptr; }
    void press();

   protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

   private:
    struct Stop {
        QPointer<QWidget> window;
        std::function<bool()> ready;
        std::function<void()> press;
    };
    const Stop* onTop() const;
    std::vector<Stop> m_stops;
};

}  // namespace kelvane

// The two first-in-first-out queues of the link. They are not pairs: a generated task (poll, group names,
// ...) has no string until it is sent, and one that is resent leaves copies of its string behind. What is
// kept here is how many strings at the front belong to the front task, so that none ever goes out for another
// one. Base of the scheduler; windows push through it.
#pragma once

#include <QString>
#include <deque>

namespace kelvane {

inline constexpr quint8 RunTask = 2;
inline constexpr quint8 StopTask = 3;
inline constexpr quint8 DirectionTask = 5;
inline constexpr quint8 JogTask = 6;
inline constexpr quint8 ParameterTask = 12;  // the whole record of one parameter
inline constexpr quint8 WriteTask = 13;
inline constexpr quint8 ReadBackTask = 18;  // the value of one parameter
inline constexpr quint8 GeneralTask = 20;   // any block of registers

// Its string is made when it is sent.
bool isGeneratedTask(quint8 task);

class RequestQueues {
   public:
    std::deque<quint8> TaskQueue;      // the front is the task in progress
    std::deque<QString> CommandQueue;  // command strings such as "FF0321100003"

    // Behind everything else. Strings that an ended task left are dropped first.
    void push(quint8 task, const QString& command);
    void push(quint8 task);  // a generated one
    // Empties both, but for a STOP that has not left yet: a person's STOP always leaves.
    void emptyQueues();
    // Takes back a request that has not left yet, all of its copies; one that is in hand goes on.
    void dropWaiting(quint8 task, const QString& command);
    // The front string of the front task, which gets one more string if it is a generated one. Empty when it
    // has none.
    QString takeUp(const QString& generated);
    bool inHand() const { return m_inHand && !TaskQueue.empty(); }  // sent, and not ended

   protected:
    void pushStop(const QString& command);
    bool stopWaits() const;   // behind the exchange in hand
    bool stopIsNext() const;  // at the front, not sent yet
    bool stopIsOut() const;   // in hand
    // The exchange in hand failed: STOP goes before it is tried again, and what would move the motor is
    // withdrawn.
    void promoteStop();
    void keepStop();   // a STOP in hand has not been answered: it has to leave once more
    void dropFront();  // the exchange in hand has ended
    void clearQueues();

   private:
    qsizetype stringsBefore(size_t position) const;
    void withdraw(size_t position);
    void withdrawMotion();
    int m_copies = 0;  // strings at the front that belong to the front task while it is in hand
    bool m_inHand = false;
};

}  // namespace kelvane

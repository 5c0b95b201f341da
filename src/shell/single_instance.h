// One instance of the tool a user: the second start asks the first to come forward and ends without a window.
// A lock file decides who is first, and a socket beside it carries the question; both lie in the user's own
// runtime folder.
#pragma once

#include <QLocalServer>
#include <QLockFile>
#include <QObject>

namespace kelvane {

class SingleInstance : public QObject {
    Q_OBJECT
   public:
    enum class Start {
        First,
        Second,   // the running one has answered and comes forward
        Unclear,  // problem() says why; the tool starts all the same
    };

    // path is that of the socket, shared by all starts of one program by one user.
    explicit SingleInstance(const QString& path = ownPath(), QObject* parent = nullptr);

    Start start();
    // Plain words with the file that is in the way; empty when nothing is.
    const QString& problem() const { return m_problem; }

    // In the runtime folder of the user; without one in the folder for temporary files, with the user's
    // number.
    static QString ownPath();

   Q_SIGNALS:
    void raiseWanted();

   private:
    void answer();
    bool runningAnswers() const;
    Start listen();
    QString m_path;
    QString m_problem;
    QLockFile m_lock;
    QLocalServer m_server;
};

}  // namespace kelvane

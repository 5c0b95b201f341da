#include "shell/single_instance.h"

#include <QDir>
#include <QFileInfo>
#include <QLocalSocket>
#include <QStandardPaths>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace kelvane {

namespace {

constexpr int AnswerMs = 2000;
const QByteArray Question = "Kelvane: come forward\n";
const QByteArray Answer = "Kelvane: coming\n";

// A number where there is one, since several users may have no home of their own.
QString userName() {
#ifdef Q_OS_UNIX
    return QString::number(::getuid());
#else
    return QFileInfo(QDir::homePath()).owner();
#endif
}

QString lockPath(const QString& path) { return path % QStringLiteral(".lock"); }

}  // namespace

SingleInstance::SingleInstance(const QString& path, QObject* parent)
    : QObject(parent), m_path(path), m_lock(lockPath(path)), m_server(this) {
    m_lock.setStaleLockTime(0);  // a program that runs for days still runs; one that was killed is noticed
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&m_server, &QLocalServer::newConnection, this, &SingleInstance::answer);
}

QString SingleInstance::ownPath() {
    const QString runtime = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (!runtime.isEmpty()) return QDir(runtime).filePath(QStringLiteral("orlan-kelvane"));
    return QDir(QDir::tempPath()).filePath(QStringLiteral("orlan-kelvane-") % userName());
}

void SingleInstance::answer() {
    while (QLocalSocket* caller = m_server.nextPendingConnection()) {
        connect(caller, &QLocalSocket::disconnected, caller, &QObject::deleteLater);
        const auto look = [this, caller] {
            if (!caller->canReadLine() || caller->readLine() != Question) return;
            caller->write(Answer);
            caller->flush();
            Q_EMIT raiseWanted();
        };
        connect(caller, &QLocalSocket::readyRead, this, look);
        look();
    }
}

// Somebody else's socket may take a call, but does not know the answer.
bool SingleInstance::runningAnswers() const {
    QLocalSocket socket;
    socket.connectToServer(m_path);
    if (!socket.waitForConnected(AnswerMs)) return false;
    socket.write(Question);
    socket.flush();
    while (!socket.canReadLine())
        if (!socket.waitForReadyRead(AnswerMs)) return false;
    return socket.readLine() == Answer;
}

SingleInstance::Start SingleInstance::start() {
    if (m_lock.tryLock(0)) return listen();
    if (runningAnswers()) return Start::Second;
    const QString file = lockPath(m_path);
    if (m_lock.error() == QLockFile::LockFailedError) {
        qint64 process = 0;
        QString host;
        QString program;
        m_lock.getLockInfo(&process, &host, &program);
        m_problem = QStringLiteral(
                        "%1 says that the program runs already (process %2), but nobody answers. If it does "
                        "not run, delete that file.")
                        .arg(file)
                        .arg(process);
    } else {
        m_problem =
            QStringLiteral("Whether the program runs already cannot be found out: %1 cannot be written.")
                .arg(file);
    }
    return Start::Unclear;
}

// Ours is the lock, so a socket under that name was left by a run that was killed.
SingleInstance::Start SingleInstance::listen() {
    QLocalServer::removeServer(m_path);
    if (m_server.listen(m_path)) return Start::First;
    m_problem = QStringLiteral("A second start cannot bring this window forward: %1: %2")
                    .arg(m_path, m_server.errorString());
    return Start::Unclear;
}

}  // namespace kelvane

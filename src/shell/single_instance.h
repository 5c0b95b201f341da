// One instance of the tool a user: the second start tells the first to come forward and ends without a
// window.
#pragma once

#include <QLocalServer>
#include <QObject>

namespace kelvane {

class SingleInstance : public QObject {
    Q_OBJECT
   public:
    // name is shared by all starts of one program by one user.
    explicit SingleInstance(const QString& name, QObject* parent = nullptr);

    // True when this is the first; otherwise the running one comes forward.
    bool isFirst();

   Q_SIGNALS:
    void raiseWanted();

   private:
    bool tellRunning();
    QString m_name;
    QLocalServer m_server;
};

}  // namespace kelvane

// The hidden "Flasher" page: an S-record file goes out line by line, paced by a timer alone; no reply is
// awaited.
#pragma once

#include <QObject>
#include <QStringList>

#include "console/connection/console_traffic.h"

namespace kelvane {

class Flasher : public QObject {
    Q_OBJECT
   public:
    Flasher(ConsoleTraffic& traffic, TickClock& clock, const Voice& voice);

    QStringList FlashLines;  // also what FileMemo shows
    quint16 FlashLineIndex = 0;
    int gauge = 0;
    TickTimer MotTimer;
    quint16 FlashLineCount() const { return static_cast<quint16>(FlashLines.size()); }
    bool running() const { return MotTimer.Enabled(); }

    void LoadClick();
    void SendFileTransparentButtonClick();
    void stop();

   Q_SIGNALS:
    void changed();

   private:
    void MotTimerTimer();
    ConsoleTraffic& m_traffic;
    const Voice m_voice;
};

}  // namespace kelvane

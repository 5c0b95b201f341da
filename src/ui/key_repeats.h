// A key that is held down repeats: the window system tells of it as released and pressed at the same moment.
// Qt knows a repeat only if both halves have arrived together, which they do not on a busy machine. This
// filter of the whole application marks the press of such a pair as repeated, so that nothing takes a held
// key for many presses.
#pragma once

#include <QKeyEvent>

namespace kelvane {

class KeyRepeats : public QObject {
    Q_OBJECT
   public:
    KeyRepeats();

   protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

   private:
    // Of the last release.
    quint32 m_scanCode = 0;
    quint64 m_timestamp = 0;  // ms of the window system; 0: none
};

}  // namespace kelvane

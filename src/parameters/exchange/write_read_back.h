// After a run of writes: reads every checked row of the write list back from the drive, behind the progress
// dialog, and puts what the drive holds into the list. Owned by the writer.
#pragma once

#include <QObject>

#include "parameters/dialogs/progress_dialog.h"
#include "parameters/exchange/parameter_bench.h"
#include "parameters/exchange/rest_watch.h"
#include "parameters/parameter_screen.h"
#include "parameters/table/parameter_table.h"

namespace kelvane {

class WriteReadBack : public QObject {
    Q_OBJECT
   public:
    // WriteWaiting is the writer's: one command is outstanding, be it a write or a read-back.
    WriteReadBack(ParameterBench& bench, const ParameterScreen& screen, ProgressDialog& progress,
                  StringGrid& AdvStringGrid1, quint8& WriteWaiting);

    quint32 RefreshRow = 0;
    TickTimer ReflahDtataTimer;

    void start(int rows);  // so many rows are checked
    void stop();

   Q_SIGNALS:
    void rowReadBack(int row);
    void ended();
    void abandoned();  // left by the person, while no reply can come any more

   private:
    void ReflahDtataTimerTimer();
    void nextRow();
    void send();
    void takeReply();
    void onCancel();
    void abandon();

    ParameterBench& m_bench;
    const ParameterScreen& m_screen;
    ProgressDialog& m_progress;
    StringGrid& m_list;
    quint8& m_WriteWaiting;
    RestWatch m_restWatch;
};

}  // namespace kelvane

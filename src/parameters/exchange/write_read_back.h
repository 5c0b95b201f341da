// After a run of writes: reads rows of the write list back from the drive, behind the progress dialog, and
// puts what the drive holds into the list. Owned by the writer.
#pragma once

#include <QObject>

#include "parameters/dialogs/progress_dialog.h"
#include "parameters/exchange/parameter_site.h"
#include "parameters/exchange/rest_watch.h"
#include "parameters/parameter_screen.h"
#include "parameters/table/parameter_table.h"

namespace kelvane {

class WriteReadBack : public QObject {
    Q_OBJECT
   public:
    WriteReadBack(ParameterSite& site, const ParameterScreen& screen, ProgressDialog& progress,
                  StringGrid& AdvStringGrid1);

    quint32 RefreshRow = 0;

    void start(const std::vector<bool>& wanted);  // by row of the list
    void stop();
    bool running() const { return m_chain.running(); }

   Q_SIGNALS:
    void rowReadBack(int row);
    void ended();
    void abandoned();  // left by the person, or the link gave up

   private:
    std::optional<LinkRequest> nextRequest();
    void takeReply();
    void onCancel();
    void abandon();

    ParameterSite& m_site;
    const ParameterScreen& m_screen;
    ProgressDialog& m_progress;
    StringGrid& m_list;
    std::vector<bool> m_wanted;
    RequestChain m_chain;
    RestWatch m_restWatch;
};

}  // namespace kelvane

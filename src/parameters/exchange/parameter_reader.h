// Reads the table from a drive, or from a keypad: one request a parameter, group by group, behind the
// progress dialog. It never touches the port: its list of requests goes through a chain. Owned by the
// Parameter window's session, which hands it the table and the screen.
#pragma once

#include <QObject>
#include <functional>
#include <optional>
#include <vector>

#include "parameters/dialogs/progress_dialog.h"
#include "parameters/exchange/parameter_site.h"
#include "parameters/exchange/rest_watch.h"
#include "parameters/parameter_screen.h"
#include "parameters/table/parameter_table.h"

namespace kelvane {

// One line of GrpNameCheckListBox (TSelGroupLoadForm). That dialog is not shown: a read checks all of them.
struct GroupCheck {
    QString name;
    bool checked = false;
};

class ParameterReader : public QObject {
    Q_OBJECT
   public:
    // All of them outlive the reader.
    ParameterReader(ParameterSite& site, ParameterTable& table, ParameterScreen& screen,
                    ProgressDialog& progress);

    quint8 ReadGroup = 0;
    quint16 ReadNumber = 0;
    quint16 ReadRow = 1;
    quint8 ReadPending = 0;
    quint8 ReadReservedWanted = 0;
    quint8 DriveTableComplete = 0;
    std::vector<GroupCheck> GrpNameCheckListBox;

    bool reading() const { return m_chain.running(); }
    // Starts a read of the whole table. Off line it asks for com setup first.
    void ReadDriveTransparentButtonClick();
    // The same with the reserved group.
    void ShowReservedParametersClick();
    // The link has given up, or the window closes: no more requests; the rows that were read stay.
    void stop();

    // Hides or shows the columns that a family has not; set by the session.
    std::function<void(Family)> hideColumnsFor;

   Q_SIGNALS:
    void started();        // the table is blank and its identity is the drive's
    void screenChanged();  // tabs, tree, lamp or menu items
    void rowFilled(int row);
    void ended(bool complete);  // true when it came to its end, false after Cancel and Abort

   private:
    struct Plan {
        int total = 0;  // parameters
        int rows = 0;   // estimate, header and group rows included
    };
    // Start.
    void startRead();
    void forgetReservedWish();
    void prepareTable();
    void takeIdentity();
    bool fillGroupList(Plan& plan);
    void showTree();
    void showProgress(const Plan& plan);

    // Sending half.
    std::optional<LinkRequest> nextRequest();
    bool groupChecked(int G) const;
    void passUncheckedGroups();
    void writeGroupRow();
    void endAtUncheckedGroup();
    QString readCommand() const;

    // Receiving half.
    void takeReply();
    void storeRow();
    void stepOn();
    void askWhenCancelled();
    void tellNoAnswer();
    void stopWaiting();
    void endRead(int rows);

    Family family() const { return static_cast<Family>(m_site.link.DriveStatus.DriveFamily); }
    int groupCount() const { return m_site.link.DriveStatus.GroupCount; }
    int highestNumber(int G) const;
    bool reservedIncluded() const { return m_screen.ShowReservedParametersEnabled && ReadReservedWanted; }
    int limit() const { return reservedIncluded() ? groupCount() + 1 : groupCount(); }

    ParameterSite& m_site;
    ParameterTable& m_table;
    ParameterScreen& m_screen;
    ProgressDialog& m_progress;
    RequestChain m_chain;
    RestWatch m_restWatch;
    bool m_reservedShown = false;  // RparaAbLED as it was before the reserved group was asked for
};

}  // namespace kelvane

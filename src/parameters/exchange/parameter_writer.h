// Writes rows of a table to the drive: the write list that the operator confirms, one write a checked row,
// the error record of what was refused, and then the read-back. TWriteCheckForm and TWriteCheckErrRecordForm
// show it. Owned by the Parameter window's session.
#pragma once

#include <QList>
#include <QObject>
#include <functional>
#include <optional>

#include "parameters/exchange/write_list.h"
#include "parameters/exchange/write_read_back.h"
#include "parameters/table/edit_history.h"

namespace kelvane {

// The table that rows are taken from and go back to.
struct WriteSource {
    ParameterTable* table = nullptr;
    EditHistory* history = nullptr;
};

// TWriteCheckForm.
struct WriteCheckRecord {
    bool shown = false;
    bool enabled = true;  // AdvStringGrid1, OKTransparentButton, CancelTransparentButton
    int barMaximum = 0;   // ProgressBar1
    int barPosition = 0;
    QString PrLabel = QStringLiteral("- -");
};

class ParameterWriter : public QObject {
    Q_OBJECT
   public:
    // All of them outlive the writer.
    ParameterWriter(ParameterSite& site, const ParameterScreen& screen, ProgressDialog& progress);

    StringGrid AdvStringGrid1{TableColumns};
    StringGrid ErrorAdvStringGrid{ErrorColumns};
    WriteCheckRecord form;
    bool errorRecordShown = false;  // TWriteCheckErrRecordForm
    quint16 WriteRow = 0;
    quint16 WriteCount = 0;
    WriteReadBack readBack;
    bool writing() const { return m_chain.running(); }

    // Fills the write list and shows it; a box tells when no row is taken.
    void SelectWriteSource(const WriteSource& source, WriteMode mode, bool useDefaults);
    void OKTransparentButtonClick();
    void CancelTransparentButtonClick() { FormClose(); }
    // Close box and Escape: a run is asked about first, ended in order, and what was sent is read back.
    void closeWanted();
    // The window closes, in whatever way: everything stops, values go back to the table.
    void FormClose();
    void errorRecordClosed();

   Q_SIGNALS:
    void changed();
    void shownChanged(bool shown);
    void writesBegin();  // the first request of a run is about to be pushed
    void runEnded(int written,
                  int refused);  // behind the last write; rows, without the opening and closing command
    void errorRecordWanted();    // show it; errorRecordClosed() goes on
    void rowReadBack(int row);   // of the write list
    void closed();               // the values are back in the table

   private:
    void startWrites(int checked);
    std::optional<LinkRequest> nextRequest();
    bool passesOver() const;
    std::optional<QString> nextCommand();
    void leaveTheRest();
    void takeAnswer();
    void skipRow();
    bool stepRow();
    void recordRefusal();
    void stepBar();
    void finishWrites();
    void startReadBack();
    void setEnabled(bool on);
    void setShown(bool on);
    void copyBack();
    bool isAspen() const;
    int rowCount() const { return AdvStringGrid1.RowCount(); }

    ParameterSite& m_site;
    WriteSource m_source;
    int m_rowsDone = 0;     // checked rows that were answered or refused
    int m_rowsRefused = 0;  // of these, and those that could not be sent
    QList<int> m_rowsReadBack;
    std::vector<bool> m_wanted;  // rows to read back
    bool m_readBackDue = false;  // when the error record is closed
    bool m_stopWanted = false;   // by the person, in a run
    bool m_unanswered = false;   // what was sent last; the run is stopped all the same
    bool m_aborted = false;      // the link gave up in a run
    RequestChain m_chain;
};

}  // namespace kelvane

// The progress dialog while a spreadsheet is written or read: shown with the first text, stepped by every
// parameter row, closed at the end. Lets the window system draw it now and then.
#pragma once

#include "parameters/dialogs/progress_dialog.h"
#include "parameters/files/sheet_transfer.h"

namespace kelvane {

class TransferDialog {
   public:
    // rows is the length of the bar.
    TransferDialog(ProgressDialog& dialog, const TickClock& clock, ProgressGlyph glyph, int rows);
    ~TransferDialog();
    TransferDialog(const TransferDialog&) = delete;
    TransferDialog& operator=(const TransferDialog&) = delete;

    TransferProgress progress();

   private:
    void row(const QString& ParaLabel);

    ProgressDialog& m_dialog;
    const TickClock& m_clock;
    int m_rows;
    qint64 m_pumpedUs;
};

}  // namespace kelvane

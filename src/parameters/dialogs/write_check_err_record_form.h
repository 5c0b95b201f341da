// TWriteCheckErrRecordForm, the record of what a drive refused in a run of writes. The writer asks for it
// behind a run and goes on when it has been closed.
#pragma once

#include <QDialog>

#include "parameters/exchange/parameter_writer.h"

namespace kelvane {

class StringGridView;

class TWriteCheckErrRecordForm : public QDialog {
    Q_OBJECT
   public:
    explicit TWriteCheckErrRecordForm(ParameterWriter& writer, QWidget* parent = nullptr);

   private:
    void showRecord();

    ParameterWriter& m_writer;
    StringGridView* ErrorAdvStringGrid;
};

}  // namespace kelvane

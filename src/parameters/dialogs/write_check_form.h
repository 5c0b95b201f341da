// TWriteCheckForm, the write list: the rows that are about to be written, for the operator to look through,
// change and confirm. A view of the writer's record; while a run goes on its controls rest.
#pragma once

#include <QDialog>

#include "parameters/parameter_session.h"

class QLabel;
class QProgressBar;

namespace kelvane {

class StringGridView;
class TransparentButton;

class TWriteCheckForm : public QDialog {
    Q_OBJECT
   public:
    explicit TWriteCheckForm(ParameterSession& session, QWidget* parent = nullptr);

   protected:
    void reject() override { m_writer.closeWanted(); }  // the close box and Escape, also in a run

   private:
    void buildList();
    void build();
    void connectList();
    void follow(bool shown);
    void showRecord();
    void sumUp();
    void sumUpLater();

    ParameterSession& m_session;
    ParameterWriter& m_writer;
    StringGridView* AdvStringGrid1;
    QLabel* SummaryLabel;
    QLabel* PrLabel;
    QProgressBar* ProgressBar1;
    TransparentButton* OKTransparentButton;
    TransparentButton* CancelTransparentButton;
    bool m_sumPending = false;
};

}  // namespace kelvane

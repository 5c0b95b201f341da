// The "Connection" page of the console: pages "A" and "B", the run bar that serves both, and beside them the
// command page or the chart.
#pragma once

#include <QWidget>

#include "console/advance_console.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QTabWidget;

namespace kelvane {

class ChartPage;
class CommandListPage;
class DrivePanelPage;
class SingleCommandPage;
class TransparentButton;

class ConnectionForm : public QWidget {
    Q_OBJECT
   public:
    explicit ConnectionForm(AdvanceConsole& console, QWidget* parent = nullptr);
    void showState();

   Q_SIGNALS:
    void comSetupWanted();
    void timeOutWanted(TimeOutTag tag);

   private:
    QWidget* buildLeft(QWidget* parent);
    QWidget* buildRight(QWidget* parent);
    QWidget* buildRunBar();
    QWidget* buildRowBar();
    QWidget* buildLineBar();
    QCheckBox* addCheck(const char* name, const QString& text, bool ConsoleSettings::*setting,
                        QWidget* parent);
    void addChecksumMenu();
    void toggleChart();
    int currentRow() const;

    AdvanceConsole& m_console;
    QTabWidget* ConnectionPageControl;
    QTabWidget* PageControl2;
    DrivePanelPage* m_drivePage;
    CommandListPage* m_listPage;
    SingleCommandPage* m_commandPage;
    ChartPage* m_chartPage;
    TransparentButton* RUNTransparentButton;
    TransparentButton* STOPTransparentButton;
    TransparentButton* NewTransparentButton;
    TransparentButton* InsertTransparentButton;
    TransparentButton* DelTransparentButton;
    TransparentButton* TimeOutTransparentButton;
    TransparentButton* TimeOut2TransparentButton;
    TransparentButton* ProtocolTransparentButton;
    TransparentButton* FigButton;
    QLineEdit* RepeatLabeledEdit;
    QLabel* TerCondLabel;
    QCheckBox* ErrorCheckBox;
    QCheckBox* TimeOutCheckBox;
    QCheckBox* AddChksumCheckBox;
    QCheckBox* CheckRuleCheckBox;
};

}  // namespace kelvane

// Page "A" of the console, the drive control panel, and the chart page that goes with it.
#pragma once

#include <QWidget>
#include <array>

#include "console/advance_console.h"
#include "ui/lamp.h"

class QComboBox;
class QGridLayout;
class QLineEdit;
class QPushButton;
class QToolButton;

namespace kelvane {

class EditableGridView;
class StripChart;

class DrivePanelPage : public QWidget {
    Q_OBJECT
   public:
    explicit DrivePanelPage(AdvanceConsole& console, QWidget* parent = nullptr);
    void showState();
    int currentRow() const;  // -1 when there is none

   protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

   private:
    QWidget* buildHead();
    QWidget* buildLamps();
    QWidget* buildButtons();
    void connectGrid();
    void takeId();
    void showLamps();

    AdvanceConsole& m_console;
    DrivePanel& m_panel;
    LampFlasher m_flasher;
    QComboBox* SelDriveComboBox;
    QLineEdit* DefCmdLabeledEdit;
    QLineEdit* monitorIDLabeledEdit;
    QWidget* MonitorUpDown;
    EditableGridView* AdvStringGrid1;
    std::array<AbLED*, 7> m_lamps{};
    bool m_takingId = false;
};

class ChartPage : public QWidget {
    Q_OBJECT
   public:
    explicit ChartPage(AdvanceConsole& console, QWidget* parent = nullptr);
    void showState();

   private:
    void buildChannel(int channel, QGridLayout* grid);
    void chooseColour(int channel);
    void showColour(int channel);
    void showChannels();
    void showChart();

    DrivePanel& m_panel;
    StripChart* Chart1;
    std::array<QComboBox*, DrivePanel::Channels> m_boxes{};
    std::array<QToolButton*, DrivePanel::Channels> m_panels{};
    QLineEdit* PointLabeledEdit;
};

}  // namespace kelvane

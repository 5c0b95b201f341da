// TScopeForm, the Trend window: eight drive values and four logic lines over time, with the Status tab. It
// shows a TrendSession and passes the operator's hand on to it. The shell shows it application-modal and
// opens the windows that it asks for.
#pragma once

#include <QMainWindow>
#include <array>

#include "catalogue/state_leds.h"
#include "diagnostics/trend/trend_session.h"

class QComboBox;
class QGridLayout;
class QHBoxLayout;
class QLabel;
class QLayout;
class QLineEdit;
class QScrollBar;
class QTabWidget;
class QVBoxLayout;

namespace kelvane {

class AbLED;
class LampFlasher;
class NoticeBar;
class StringGridView;
class TransparentButton;
class TrendOverview;
class TrendPlot;
class VrLabel;
class VrPowerButton;

struct ScopeFormSite {
    TickClock& clock;
    Operator& person;
};

class TScopeForm : public QMainWindow {
    Q_OBJECT
   public:
    TScopeForm(TrendSession& session, const ScopeFormSite& site, QWidget* parent = nullptr);
    ~TScopeForm() override;

    TrendPlot* AbTrend1 = nullptr;
    TrendPlot* AbTrend2 = nullptr;

    // The fault display of the Status tab; who owns the fault writes it.
    void showFault(bool standing, const QString& ErrCodeLabel, const QString& ErrDescriptLabel);
    void setDriveLabel(const QString& DriveVrLabel);
    void offerPracticeFault(bool offered);

   Q_SIGNALS:
    void keypadWanted();
    void toolWanted();        // TToolForm
    void printWanted();       // TPrintForm
    void errHistoryWanted();  // TErrHistoryForm
    void practiceFaultWanted();

   protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

   private:
    void nameBands();  // in the language in use
    // Layout.
    QWidget* buildButtons();
    TransparentButton* addButton(QHBoxLayout* row, const char* name, int icon, const QString& text);
    QWidget* buildPlots();
    QWidget* buildAxisButtons();
    QWidget* buildPages();
    QWidget* buildParts();
    QSize usualSize() const;
    QWidget* scrolled(const char* name, QLayout* row);
    QWidget* buildChannelPage();
    QWidget* buildChannelSelection();
    QWidget* buildChannelStatus();
    void addLogicRow(QGridLayout* grid, int row, int line);
    QWidget* buildStatusPage();
    QWidget* buildFaultBox();
    void showHeads();
    QWidget* buildLampBox();
    QWidget* buildMeasurePage();
    QWidget* addColourPanel(const QString& name, int channel, bool logic);
    void buildMenus();
    void buildFileMenu();
    void buildViewMenu();
    void connectSession();
    void connectPlots();

    // Showing.
    void showSession();
    void showItems();
    void showCursorTexts();
    void showState();
    void showLoaded();
    void recordTaken();
    void showTotal();
    void showOffers();
    void showMeasure();
    void takeColours();
    void syncScrollBar();

    // Hand.
    void TrendScrollBarChange(int position);
    void ButtonTimerTimer();
    void holdButton(bool up);
    void chooseColour(QWidget* panel, int channel, bool logic);
    void say(const QString& text);  // at the window's foot
    void savePicture();
    void savePlot();
    void copyPlot();
    void exportTable(qint64 from, qint64 to);
    void nameMarker(qint64 record);
    void followMarkers();

    TrendSession& m_session;
    ScopeFormSite m_site;
    TickTimer ButtonTimer;
    quint8 ButtonTicks = 0;
    bool ButtonUp = false;

    VrPowerButton* StartVrPowerButton = nullptr;
    std::array<VrPowerButton*, 9> ChVrPowerButton{};
    std::array<QComboBox*, 9> ChComboBox{};
    std::array<QLineEdit*, 9> ChLabeledEdit{};
    std::array<QWidget*, 9> ChPanel{};
    std::array<QWidget*, 5> LPanel{};
    std::array<QLabel*, 5> LogicLabel{};
    QLabel* RecNoLabel = nullptr;
    QLabel* RecTimeLabel = nullptr;
    QLabel* TotalRecordsLabel = nullptr;
    QLabel* Image1 = nullptr;
    QScrollBar* TrendScrollBar = nullptr;
    TransparentButton* KeypadTransparentButton = nullptr;
    TransparentButton* CursorTransparentButton = nullptr;
    QAction* KeyPad = nullptr;
    QAction* m_raiseFault = nullptr;
    QTabWidget* PageControl1 = nullptr;
    QWidget* StatusTabSheet = nullptr;
    VrLabel* DriveVrLabel = nullptr;
    AbLED* ErrCodeAbLED = nullptr;
    QLabel* ErrCodeLabel = nullptr;
    QLabel* ErrDescriptLabel = nullptr;
    struct {
        AbLED* RUN = nullptr;
        AbLED* STOP = nullptr;
        AbLED* JOG = nullptr;
        AbLED* FWD = nullptr;
        AbLED* REV = nullptr;
    } m_leds;
    StateLeds m_shownLeds;
    LampFlasher* m_flasher = nullptr;
    NoticeBar* m_notice = nullptr;
    QLabel* m_foot = nullptr;
    TrendOverview* m_overview = nullptr;
    QLabel* m_measureHead = nullptr;
    StringGrid m_measureGrid{9};
    StringGridView* m_measureView = nullptr;
    QStringList m_shownItems;
    int m_untilOverview = 0;
};

}  // namespace kelvane

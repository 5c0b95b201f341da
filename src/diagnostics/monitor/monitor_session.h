// The Monitor window without its widgets: a large dial, two meters of exchangeable kind and a trend of one
// channel, all fed by the idle poll of the link. It sends nothing. TMonitorForm and TMeterTypeForm show its
// fields.
#pragma once

#include <QObject>
#include <QStringList>
#include <array>
#include <functional>
#include <optional>

#include "base/operator.h"
#include "base/trend_view.h"
#include "diagnostics/trend/trend_recorder.h"
#include "link/request_scheduler.h"
#include "localisation/lang_table.h"

namespace kelvane {

// What the session works on; all of it outlives the session.
struct MonitorSite {
    TickClock& clock;
    const WallClock& wallClock;
    RequestScheduler& link;
    Operator& person;
    const LangTable& lang;
};

// A dial: top and needle in engineering units.
struct DialState {
    double MaxValue = 50;
    double Position = 0;
    int Decimals = 0;
    QString caption;
};

// A thermometer or a horizontal meter: top in units and raw counts, present raw value.
struct ScaleState {
    double ValueTo = 50;
    int DigitalTo = 5000;
    int Digit = 0;
    QString ValueUnit;
    QString ValueFormat = QStringLiteral("##0");
};

enum class MeterKind : quint8 { Angular = 1, Thermometer = 2, Horizontal = 3 };  // values of MeterType

// One exchangeable meter. All three kinds are fed; the page decides which one is seen.
struct ExchangeableMeter {
    int ComboBox = 0;     // entry of its item box, kept while no drive fills the box
    int Item = 0;         // status item of that entry; -1 for none
    quint8 Decimals = 0;  // of the item last chosen
    MeterKind page = MeterKind::Angular;
    DialState VrAngularMeter;
    ScaleState AbThermometer;
    ScaleState AbHMeter;
    QString ValueLabel = QStringLiteral("0");
};

// What stands in the meter type dialog.
struct MeterTypeChoice {
    quint8 MeterType = 1;  // 1 angular, 2 thermometer, 3 horizontal; any other counts as 1
    // Tops of the three samples.
    double VrAngularMeter = 50;
    double AbThermometer = 50;
    double AbHMeter = 50;

    // The text of "Max value" goes to all three; one that is empty or no number changes nothing.
    void setMaxValue(const QString& text);
};

// Entries of the four item boxes as project files keep them.
struct MonitorIndexes {
    int ComboBox1st = 0;
    int ComboBox2nd = 0;
    int VrMeterComboBox = 0;
    int Ch1ComboBox = 0;
    bool operator==(const MonitorIndexes&) const = default;
};

class MonitorSession : public QObject {
    Q_OBJECT
   public:
    explicit MonitorSession(const MonitorSite& site);

    // Fields of the window; Meter1 and Meter2 are the exchangeable ones.
    ExchangeableMeter Meter1;
    ExchangeableMeter Meter2;
    DialState VrMeter;
    int VrMeterComboBox = 0;
    int BigMeterItem = 0;
    int Ch1ComboBox = 0;
    int TrendItem = 0;
    TrendRecorder AbTrend1;  // one channel
    bool StartVrPowerButtonOn = false;
    bool opCursorOnRec = true;
    TickTimer GetDataTimer;
    QStringList items;  // of the four boxes
    QString Ch1LabeledEdit;
    QString Label1;  // time of the record under the cursor
    MeterTypeChoice meterType;

    // Com setup with what follows it; then runs when its last window has closed. Set by the shell.
    std::function<void(std::function<void()> then)> openComSetup;

    void GetDataTimerTimer();
    void ProcessScopeData(const DriveStatusRecord& DriveStatus);
    // A drive was recognised, or the language is another one: the boxes keep their entries.
    void InitialDrive(const QStringList& itemList);
    void takeItemNames(const QStringList& itemList);

    void StartVrPowerButtonClick(bool on);
    void ComboBoxCloseUp(ExchangeableMeter& meter, int ItemIndex);
    void VrMeterComboBoxCloseUp(int ItemIndex);
    void Ch1ComboBoxCloseUp(int ItemIndex);
    // The meter type dialog: what it shows of a meter, and what the meter takes from it when it has closed.
    void openMeterType(const ExchangeableMeter& meter);
    void takeMeterType(ExchangeableMeter& meter);
    // "Adjust the Max Value of Meter": of the large dial, and of the trend.
    void setMeterMaximum(const QString& text);
    void setTrendMaximum(const QString& text);
    void ClearTransparentButtonClick();
    void CussorTransparentButtonClick();
    void AbTrend1NewCursorPos(const ValueAtCursor& value);
    void FormClose();

    MonitorIndexes indexes() const;
    void takeIndexes(const MonitorIndexes& indexes);

   Q_SIGNALS:
    void changed();        // switches, scales, units, items
    void valuesChanged();  // needles, bars and labels alone
    void cursorTexts();

   private:
    const DriveStatusRecord& status() const { return m_site.link.DriveStatus; }
    void feedBigDial(const DriveStatusRecord& DriveStatus);
    void feedMeter(ExchangeableMeter& meter, const DriveStatusRecord& DriveStatus);
    void feedTrend(const DriveStatusRecord& DriveStatus);
    void chooseItems();
    std::optional<int> legalMaximum(const QString& text);
    void startOrStop();

    const MonitorSite m_site;
};

}  // namespace kelvane

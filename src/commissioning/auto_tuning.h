// Motor auto tuning: reads the motor's data into a grid, writes corrections back, and lets the drive measure
// the motor. Engine behind TAutoTuningForm and TMotorSelForm. While the window is open it drives the line
// itself, one request at a time, and never repeats one.
#pragma once

#include "commissioning/parameter_rows.h"
#include "commissioning/tuning_sequence.h"

namespace kelvane {

class AutoTuning : public QObject {
    Q_OBJECT
   public:
    explicit AutoTuning(const CommissioningSite& site);

    CommissioningLink line;
    ParameterRows rows;
    quint8 TuneRow = 0;  // row being read or written
    TuningSequence sequence;
    RequestChain RdTimer;
    RequestChain WrTimer;
    // "Data" of row 13, the motor selector of Tilia: "1" or "2"; empty until the drive has said it.
    QString SelectorData;
    int TuneParaComboBoxItemIndex = 0;

    // What a person may use.
    struct Enabled {
        bool buttons = true;  // motor, read, write, exit
        bool TuneTransparentButtonEnabled = false;
        bool entry = true;  // TuneParaComboBoxItemIndex and the grid
        bool operator==(const Enabled&) const = default;
    } enabled;

    // nullptr for a family without auto tuning.
    const TuneFamily* family() const { return tuneFamily(line.DriveFamily()); }
    int TuneRowCount() const { return rows.count(); }
    bool motorKnown() const { return !SelectorData.isEmpty(); }
    bool firstMotor() const { return SelectorData == QLatin1String("1"); }

    // The window has been given the link: fills the grid's numbers and starts to read, behind the wait
    // notice.
    void opened();
    void ReadTransparentButtonClick();
    void WriteTransparentButtonClick();
    void ParaAdvStringGridDblClickCell(int row);
    void TuneParaComboBoxChange(int index);
    void TuneTransparentButtonClick();
    // A person's STOP, the next frame but for the exchange in hand. A run goes no further, so that no RUN
    // follows it; the drive is watched until it stands.
    void stopDrive();
    // Whether a run was ended by stopDrive(), and whether the drive had got its tuning command and no RUN.
    enum class Stopped { No, Run, BeforeRun } stopped = Stopped::No;
    // TMotorSelForm has closed; chosen is 1 or 2, or nothing when it was left without OK.
    void motorSelFormClosed(std::optional<int> chosen);
    // Asks when a run would be left alone. Nothing is sent by closing.
    bool mayClose();
    void FormClose();

   Q_SIGNALS:
    void changed();  // enabled, which chain runs, why the window stands
    void motorChanged();
    void speedRead(int digit);

   private:
    void fillTable();
    QString registerOf(int row) const;
    void stopTimers();
    void startReading(quint8 firstRow);
    void readEnded();
    void waitLeft();
    void wentToRest();
    std::optional<LinkRequest> nextRead();
    void storeRead();
    std::optional<LinkRequest> nextWrite();
    std::optional<LinkRequest> nextOfMotor();

    const CommissioningSite m_site;
    RequestChain m_motorChain;
    bool m_motorSent = false;
};

}  // namespace kelvane

#include "diagnostics/monitor/monitor_session.h"

#include <cmath>

#include "diagnostics/status_items.h"
#include "diagnostics/trend/auto_range.h"
#include "diagnostics/trend/trend_text.h"
#include "link/number_text.h"

namespace kelvane {

namespace {

constexpr double FirstTrendTop = 1;  // of an item that was just chosen

// A text of the program's decimals as a number.
std::optional<double> numberOf(QString text) {
    bool ok = false;
    const double value = text.replace(DecimalSep, QStringLiteral(".")).toDouble(&ok);
    return ok && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

// Kept: the raw scale goes down with the decimals of a new item but not up; the next value raises it.
void followDecimals(ScaleState& meter, int before, int now) {
    int divisor = 1;
    for (int places = before; places > now; --places) divisor *= 10;
    meter.DigitalTo /= divisor;
}

void growScale(ScaleState& meter, quint32 raw, quint8 d) {
    if (qint64(raw) > meter.DigitalTo) {
        meter.ValueTo = d ? raw / d : raw;
        meter.DigitalTo = digitalOf(meter.ValueTo, d);
    }
    meter.Digit = static_cast<int>(raw);
}

}  // namespace

void MeterTypeChoice::setMaxValue(const QString& text) {
    const std::optional<double> value = text.isEmpty() ? std::nullopt : numberOf(text);
    if (value) VrAngularMeter = AbThermometer = AbHMeter = *value;
}

MonitorSession::MonitorSession(const MonitorSite& site)
    : AbTrend1(site.clock, site.wallClock, 1),
      GetDataTimer(site.clock, TickKind::Stepping, 1, [this] { GetDataTimerTimer(); }),
      m_site(site) {
    AbTrend1.SetFlow(true);
    AbTrend1.Channel(1).ValueTo = FirstTrendTop;
    AbTrend1.Channel(1).DigitalTo = 1;
    // Before the first poll there is nothing but zeros.
    AbTrend1.mayRecord = [this] { return status().DriveReady != 0; };
    connect(&m_site.link, &RequestScheduler::cycleEnded, this, [this] { GetDataTimer.kick(); });
}

// ---- Data ----

void MonitorSession::GetDataTimerTimer() {
    if (status().DriveReady) ProcessScopeData(DriveStatusRecord(status()));
}

void MonitorSession::ProcessScopeData(const DriveStatusRecord& DriveStatus) {
    feedBigDial(DriveStatus);
    feedMeter(Meter1, DriveStatus);
    feedMeter(Meter2, DriveStatus);
    feedTrend(DriveStatus);
    Q_EMIT valuesChanged();
}

// Kept: the large dial shows whole units.
void MonitorSession::feedBigDial(const DriveStatusRecord& DriveStatus) {
    if (BigMeterItem < 0) return;
    const StatusItemView item = statusItem(DriveStatus, BigMeterItem);
    const quint32 units = item.scale ? item.word / item.scale : item.word;
    if (item.scale ? VrMeter.MaxValue * item.scale < item.word : item.word > VrMeter.MaxValue)
        VrMeter.MaxValue = item.scale ? units + 1 : units;
    VrMeter.Position = units;
    VrMeter.caption = QString::number(units) % QLatin1Char(' ') % item.unit;
}

void MonitorSession::feedMeter(ExchangeableMeter& meter, const DriveStatusRecord& DriveStatus) {
    if (meter.Item < 0) return;
    const StatusItemView item = statusItem(DriveStatus, meter.Item);
    DialState& dial = meter.VrAngularMeter;
    if (item.scale) {
        const auto whole = item.word / item.scale;
        if (item.word > item.scale * dial.MaxValue) dial.MaxValue = whole + 1;
    } else if (item.word > dial.MaxValue) {
        dial.MaxValue = item.word;
    }
    dial.Position = numberOf(item.text).value_or(0);
    growScale(meter.AbThermometer, item.word, item.scale);
    growScale(meter.AbHMeter, item.word, item.scale);
    meter.ValueLabel = item.text % QLatin1Char(' ') % item.unit;
}

// Kept: a trend that does not record is started by every tick; Start off therefore stops the tick first.
void MonitorSession::feedTrend(const DriveStatusRecord& DriveStatus) {
    if (TrendItem < 0) return;
    const StatusItemView item = statusItem(DriveStatus, TrendItem);
    TrendChannel& channel = AbTrend1.Channel(1);
    if (passesScale(channel, item.word)) {
        channel.ValueFormat = item.format;
        autoRange(channel, item.word, item.scale);
        Q_EMIT changed();
    }
    channel.Digit = static_cast<quint16>(item.word);
    if (!AbTrend1.recording()) AbTrend1.SetStartRecording(true);
}

void MonitorSession::InitialDrive(const QStringList& itemList) {
    takeItemNames(itemList);
    chooseItems();
}

void MonitorSession::takeItemNames(const QStringList& itemList) {
    items = itemList;
    AbTrend1.Channel(1).Caption = items.value(Ch1ComboBox);
    Q_EMIT changed();
}

// ---- Start ----

void MonitorSession::StartVrPowerButtonClick(bool on) {
    StartVrPowerButtonOn = on;
    if (m_site.link.Lamp.onLine() || !openComSetup) return startOrStop();
    openComSetup([this] { startOrStop(); });
}

// Off line nothing runs, and the button does not pretend it.
void MonitorSession::startOrStop() {
    if (!m_site.link.Lamp.onLine()) StartVrPowerButtonOn = false;
    GetDataTimer.setEnabled(StartVrPowerButtonOn);
    AbTrend1.SetStartRecording(StartVrPowerButtonOn);
    Q_EMIT changed();
}

// ---- Items ----

void MonitorSession::chooseItems() {
    ComboBoxCloseUp(Meter1, Meter1.ComboBox);
    ComboBoxCloseUp(Meter2, Meter2.ComboBox);
    VrMeterComboBoxCloseUp(VrMeterComboBox);
    Ch1ComboBoxCloseUp(Ch1ComboBox);
}

void MonitorSession::ComboBoxCloseUp(ExchangeableMeter& meter, int ItemIndex) {
    meter.ComboBox = ItemIndex;
    meter.Item = statusItemOfEntry(status().DriveFamily, ItemIndex);
    const StatusItemView item = statusItem(status(), meter.Item);
    meter.VrAngularMeter.Decimals = item.decimals;
    // Kept: the unit goes to dial and bar, the format to the thermometer.
    meter.VrAngularMeter.caption = meter.AbHMeter.ValueUnit = item.unit;
    meter.AbThermometer.ValueFormat = item.format;
    followDecimals(meter.AbThermometer, meter.Decimals, item.decimals);
    followDecimals(meter.AbHMeter, meter.Decimals, item.decimals);
    if (item.decimals <= 2) meter.Decimals = item.decimals;
    Q_EMIT changed();
}

void MonitorSession::VrMeterComboBoxCloseUp(int ItemIndex) {
    VrMeterComboBox = ItemIndex;
    BigMeterItem = statusItemOfEntry(status().DriveFamily, ItemIndex);
    VrMeter.caption =
        QString::number(VrMeter.Position) % QLatin1Char(' ') % statusItem(status(), BigMeterItem).unit;
    Q_EMIT changed();
}

void MonitorSession::Ch1ComboBoxCloseUp(int ItemIndex) {
    Ch1ComboBox = ItemIndex;
    TrendItem = statusItemOfEntry(status().DriveFamily, ItemIndex);
    const StatusItemView item = statusItem(status(), TrendItem);
    TrendChannel& channel = AbTrend1.Channel(1);
    channel.ValueFormat = item.format;
    channel.ValueUnit = item.unit;
    channel.Caption = items.value(ItemIndex);
    channel.ValueTo = FirstTrendTop;
    channel.DigitalTo = 1;  // Kept: the trend window begins with 0
    Q_EMIT changed();
}

// ---- Kind and top of the meters ----

// Kept: the dialog opens with the kind that was chosen last, for whichever meter.
void MonitorSession::openMeterType(const ExchangeableMeter& meter) {
    switch (meter.page) {
        case MeterKind::Angular: meterType.VrAngularMeter = meter.VrAngularMeter.MaxValue; break;
        case MeterKind::Thermometer: meterType.AbThermometer = meter.AbThermometer.ValueTo; break;
        case MeterKind::Horizontal: meterType.AbHMeter = meter.AbHMeter.ValueTo; break;
    }
}

// Kept: OK and Cancel of the dialog both come to this.
void MonitorSession::takeMeterType(ExchangeableMeter& meter) {
    const quint8 d = statusItem(status(), meter.Item).scale;
    const auto take = [d](ScaleState& scale, double top) {
        scale.ValueTo = top;
        scale.DigitalTo = digitalOf(top, d);
    };
    switch (meterType.MeterType) {
        case 2:
            meter.page = MeterKind::Thermometer;
            take(meter.AbThermometer, meterType.AbThermometer);
            break;
        case 3:
            meter.page = MeterKind::Horizontal;
            take(meter.AbHMeter, meterType.AbHMeter);
            break;
        default:
            meter.page = MeterKind::Angular;
            meter.VrAngularMeter.MaxValue = meterType.VrAngularMeter;
            break;
    }
    Q_EMIT changed();
}

std::optional<int> MonitorSession::legalMaximum(const QString& text) {
    if (text.isEmpty()) return std::nullopt;
    bool ok = false;
    const int value = text.toInt(&ok);
    if (ok && value >= 0) return value;
    m_site.person.tell(m_site.lang.MsgStr(ok ? Message::ValueBelowZero : Message::ValueNotLegal),
                       QStringLiteral("Error Message"), BoxIcon::Stop);
    return std::nullopt;
}

void MonitorSession::setMeterMaximum(const QString& text) {
    const std::optional<int> value = legalMaximum(text);
    if (!value) return;
    VrMeter.MaxValue = *value;
    Q_EMIT changed();
}

void MonitorSession::setTrendMaximum(const QString& text) {
    const std::optional<int> value = legalMaximum(text);
    if (!value) return;
    TrendChannel& channel = AbTrend1.Channel(1);
    channel.ValueTo = *value;
    channel.DigitalTo =
        digitalOf(*value, statusItem(status(), statusItemOfEntry(status().DriveFamily, Ch1ComboBox)).scale);
    Q_EMIT changed();
}

// ---- Trend ----

void MonitorSession::ClearTransparentButtonClick() { AbTrend1.ClearRecords(); }

void MonitorSession::CussorTransparentButtonClick() {
    opCursorOnRec = !opCursorOnRec;
    Q_EMIT changed();
}

void MonitorSession::AbTrend1NewCursorPos(const ValueAtCursor& value) {
    const StatusItemView item = statusItem(status(), statusItemOfEntry(status().DriveFamily, Ch1ComboBox));
    Ch1LabeledEdit = value.DataValid
                         ? trendValueText(AbTrend1.Channel(1), value.Digit[0], item.decimals, item.scale)
                         : QString();
    Label1 = value.DataValid ? trendTimeText(value.Time) : QString();
    Q_EMIT cursorTexts();
}

// ---- Closing and projects ----

void MonitorSession::FormClose() {
    StartVrPowerButtonOn = false;
    GetDataTimer.setEnabled(false);
    AbTrend1.SetStartRecording(false);
    VrMeter.Position = 0;
    VrMeterComboBoxCloseUp(VrMeterComboBox);  // with its caption
    for (ExchangeableMeter* meter : {&Meter1, &Meter2}) {
        meter->VrAngularMeter.Position = 0;
        meter->AbThermometer.Digit = meter->AbHMeter.Digit = 0;
        meter->ValueLabel = QStringLiteral("0");
    }
    AbTrend1.ClearRecords();
    Q_EMIT changed();
    Q_EMIT valuesChanged();
}

MonitorIndexes MonitorSession::indexes() const {
    return {Meter1.ComboBox, Meter2.ComboBox, VrMeterComboBox, Ch1ComboBox};
}

void MonitorSession::takeIndexes(const MonitorIndexes& taken) {
    Meter1.ComboBox = taken.ComboBox1st;
    Meter2.ComboBox = taken.ComboBox2nd;
    VrMeterComboBox = taken.VrMeterComboBox;
    Ch1ComboBox = taken.Ch1ComboBox;
    chooseItems();
}

}  // namespace kelvane

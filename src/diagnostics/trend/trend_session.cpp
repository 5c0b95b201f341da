#include "diagnostics/trend/trend_session.h"

#include <QFileInfo>
#include <algorithm>
#include <cmath>

#include "base/trend_time.h"
#include "diagnostics/status_items.h"
#include "diagnostics/trend/auto_range.h"
#include "diagnostics/trend/scope_file.h"
#include "diagnostics/trend/trend_text.h"
#include "link/number_text.h"

namespace kelvane {

namespace {

const QString ScopeFilter = QStringLiteral("Trd - scope data|*.trd");
const QString ScopeExtension = QStringLiteral("trd");  // for a name without one
const QString CsvFilter = QStringLiteral("Table|*.csv");
constexpr int LogicScale = 80;
constexpr quint8 LastInfoFamily = 6;  // the Status tab shows values of families 0 to 6 only
constexpr std::array<quint16, 5> LogicHigh{0, 10, 30, 50, 70};
constexpr qint64 InfoBytes = 1 << 20;

constexpr std::array<quint32, TrendSession::Channels> ChannelColours{0x00FF00, 0xFFFF00, 0xFF0000, 0xFF00FF,
                                                                     0xFF8040, 0x00FFFF, 0xF0F0F0, 0x0078D7};
constexpr std::array<quint32, TrendSession::LogicLines> LogicColours{0x00FF00, 0xFFFF00, 0xFF0000, 0xFF00FF};
constexpr std::array<const char*, TrendSession::LogicLines> LogicCaptions{
    "L1 RUN/STOP command", "L2 RUN/STOP status", "L3 FWD/REV command", "L4 FWD/REV status"};

}  // namespace

double ParseFixed(int decimals, const QString& text) {
    const qsizetype separator = text.indexOf(DecimalSep);
    if (separator < 0) return text.trimmed().toInt();
    const int whole = text.left(separator).trimmed().toInt();
    const QString digits = text.mid(separator + DecimalSep.size()).left(decimals);
    // In one step, since tenths are no sums of powers of two: "80.56" is the number that 80.56 is.
    bool ok = digits.isEmpty();
    const double scaled = digits.isEmpty() ? 0 : digits.toUInt(&ok);
    if (!ok) return whole;
    const double tens = std::pow(10.0, static_cast<double>(digits.size()));
    return (whole * tens + scaled) / tens;
}

TrendSession::TrendSession(const TrendSite& site)
    : AbTrend1(site.clock, site.wallClock, Channels),
      AbTrend2(site.clock, site.wallClock, LogicLines),
      GetDataTimer(site.clock, TickKind::Stepping, 1, [this] { GetDataTimerTimer(); }),
      m_site(site),
      m_journal(site.journalFolder, site.wallClock) {
    for (int c = 1; c <= Channels; ++c) {
        AbTrend1.Channel(c).color = ChannelColours[static_cast<size_t>(c - 1)];
        AbTrend1.Channel(c).visible = false;
        ChLabeledEdit[static_cast<size_t>(c)] = ChannelOnText;
    }
    for (int line = 1; line <= LogicLines; ++line) {
        TrendChannel& channel = AbTrend2.Channel(line);
        channel.color = LogicColours[static_cast<size_t>(line - 1)];
        channel.Caption = QString::fromLatin1(LogicCaptions[static_cast<size_t>(line - 1)]);
        channel.DigitalTo = LogicScale;
        channel.ValueTo = LogicScale;
    }
    RecNoLabel = RecTimeLabel = NoRecordText;
    InfoAdvStringGrid.setRowCount(8);
    setCaptions();
    // Before the first poll there is nothing but zeros.
    AbTrend1.mayRecord = [this] { return status().DriveReady != 0; };
    connect(&AbTrend1, &TrendRecorder::OnInterval, this, &TrendSession::recordTaken);
    connect(&AbTrend1, &TrendRecorder::noRoom, this, [this] {
        tell(QStringLiteral(
            "There is no memory left for more records. The recording has stopped; save it now."));
    });
    followLink();
}

void TrendSession::followLink() {
    RequestScheduler& link = m_site.link;
    connect(&link, &RequestScheduler::cycleEnded, this, [this] { GetDataTimer.kick(); });
    connect(&link, &RequestScheduler::answered, this, [this](quint8 task) { commandAnswered(task); });
    connect(&link, &RequestScheduler::timeoutTold, this, &TrendSession::suspend);
    connect(&link, &RequestScheduler::answeredAgain, this, &TrendSession::resume);
    // Behind an Abort there is no time-out to answer any more.
    connect(&link, &RequestScheduler::wentOnLine, this, &TrendSession::resume);
    connect(&link, &RequestScheduler::statusDecoded, this, [this] { offerKeypad(true); });
    connect(&link, &RequestScheduler::initialRun, this, [this] {
        StatusTabSheetShown = false;
        offerKeypad(false);
        Q_EMIT changed();
    });
}

void TrendSession::offerKeypad(bool offered) {
    if (std::exchange(KeypadTransparentButtonEnabled, offered) != offered) Q_EMIT changed();
}

TrendSession::~TrendSession() { m_journal.finish(AbTrend1.data.records); }

void TrendSession::tell(const QString& text) {
    notice = text;
    Q_EMIT changed();
}

// ---- Data ----

void TrendSession::GetDataTimerTimer() {
    if (status().DriveReady) ProcessScopeData(status());
}

void TrendSession::ProcessScopeData(DriveStatusRecord DriveStatus) {
    if (showFault) showFault(DriveStatus);
    const quint32 state = DriveStatus.StatusWords[1];
    RunState = (state & 3) == 0 ? 0 : 1;
    DirState = (state & 8) == 0 ? 1 : 0;
    TrendChannel& L1 = AbTrend2.Channel(1);
    TrendChannel& L2 = AbTrend2.Channel(2);
    TrendChannel& L3 = AbTrend2.Channel(3);
    TrendChannel& L4 = AbTrend2.Channel(4);
    L2.Digit = static_cast<quint16>(20 + 10 * RunState);
    L4.Digit = static_cast<quint16>(60 + 10 * DirState);
    if (!LogicPrimed) {
        L1.Digit = static_cast<quint16>(L2.Digit - 20);
        L3.Digit = static_cast<quint16>(L4.Digit - 20);
        LogicPrimed = true;  // Kept: once per run of the program
    }
    Q_EMIT statusShown();
    showInfoValues(DriveStatus);
    bool rescaled = false;
    for (int c = 1; c <= Channels; ++c) {
        const int k = ChannelItem[static_cast<size_t>(c)];
        rescaled |=
            autoRange(AbTrend1.Channel(c), statusWordOf(DriveStatus, k), statusItem(DriveStatus, k).scale);
    }
    if (rescaled) Q_EMIT scalesChanged();
    for (int c = 1; c <= Channels; ++c) {
        const quint32 word = statusWordOf(DriveStatus, ChannelItem[static_cast<size_t>(c)]);
        AbTrend1.Channel(c).Digit = static_cast<quint16>(word);
    }
}

// Values stand where the names stand. Kept: families above 6 have no values here.
void TrendSession::showInfoValues(const DriveStatusRecord& DriveStatus) {
    const FamilyProfile* profile = familyProfile(DriveStatus.DriveFamily);
    if (!profile || DriveStatus.DriveFamily > LastInfoFamily) return;
    constexpr int RowsPerColumn = 7;
    int entry = 0;
    for (const ListEntry& listed : profile->itemList) {
        const int column = entry < RowsPerColumn ? 1 : 5;
        InfoAdvStringGrid.setCell(column, 1 + entry % RowsPerColumn, DriveStatus.StatusText[listed.item]);
        ++entry;
    }
}

void TrendSession::ChangeChanelSetting(int channel) {
    const auto c = static_cast<size_t>(channel);
    const int k = statusItemOfEntry(status().DriveFamily, ChComboBox[c]);
    if (k < 0) return;
    const StatusItemView item = statusItem(status(), k);
    TrendChannel& trend = AbTrend1.Channel(channel);
    trend.ValueFormat = item.format;
    trend.ValueUnit = item.unit;
    trend.ValueTo = 0;
    trend.DigitalTo = 0;
    ChannelItem[c] = k;
    m_takenItem[c].reset();
    setCaptions();
    GetDataTimer.kick();
    Q_EMIT scalesChanged();
}

void TrendSession::setCaptions() {
    for (int c = 1; c <= Channels; ++c) {
        AbTrend1.Channel(c).Caption = QStringLiteral("Ch%1 ").arg(c) % shownItem(c).name;
    }
}

void TrendSession::takeItemNames(const QStringList& itemList) {
    items = itemList;
    setCaptions();
    Q_EMIT changed();
}

void TrendSession::InitialDrive(const QStringList& itemList) {
    m_takenItem.fill({});
    m_takenDrive.clear();
    for (int c = 1; c <= Channels; ++c) {
        TrendChannel& channel = AbTrend1.Channel(c);
        // Kept: channel c takes format and unit of item c - 1, whatever item it shows.
        const StatusItemView item = statusItem(status(), c - 1);
        channel.ValueFormat = item.format;
        channel.ValueUnit = item.unit;
        const int entry = ChComboBox[static_cast<size_t>(c)];
        if (entry >= 0) ChannelItem[static_cast<size_t>(c)] = statusItemOfEntry(status().DriveFamily, entry);
    }
    StatusTabSheetShown = true;
    takeItemNames(itemList);
    Q_EMIT scalesChanged();
}

void TrendSession::commandAnswered(quint8 task) {
    constexpr quint32 Reverse = 8;
    if (task == 2 || task == 6) AbTrend2.Channel(1).Digit = 10;
    if (task == 3) AbTrend2.Channel(1).Digit = 0;
    // The status still shows the direction before the change: reverse has just been asked to go forward.
    if (task == 5) AbTrend2.Channel(3).Digit = status().StatusWords[1] & Reverse ? 50 : 40;
}

// ---- A run ----

void TrendSession::StartVrPowerButtonClick(bool on) {
    StartVrPowerButtonOn = on;
    const auto goOn = [this] {
        // Off Line a button that is off has nothing to stop, but gives the scroll bar back.
        if (!StartVrPowerButtonOn) stopRun();
        if (StartVrPowerButtonOn && m_site.link.Lamp.onLine()) startRun();
        Q_EMIT changed();
    };
    if (m_site.link.Lamp.onLine() || !openComSetup) return goOn();
    openComSetup(goOn);
}

void TrendSession::startRun() {
    forgetTakenItems();
    GetDataTimer.setEnabled(true);
    AbTrend1.SetFlow(true);
    AbTrend2.SetFlow(true);
    AbTrend1.SetStartRecording(true);
    // The pair leaves the same break in both lists, and AbTrend2 fed by AbTrend1 alone.
    AbTrend2.SetStartRecording(true);
    AbTrend2.SetStartRecording(false);
    TrendScrollBarEnabled = false;
    Q_EMIT changed();
}

void TrendSession::stopRun() {
    GetDataTimer.setEnabled(false);
    AbTrend1.SetStartRecording(false);
    TrendScrollBarEnabled = true;
    Q_EMIT changed();
}

void TrendSession::suspend() {
    if (!StartVrPowerButtonOn) return;
    GetDataTimer.setEnabled(false);
    AbTrend1.SetStartRecording(false);
}

void TrendSession::resume() {
    if (StartVrPowerButtonOn && !GetDataTimer.Enabled()) startRun();
}

void TrendSession::recordTaken() {
    AbTrend2.GetData();
    m_unsaved = true;
    keepJournal();
}

void TrendSession::FormClose() {
    StartVrPowerButtonOn = false;
    stopRun();
    AbTrend2.SetStartRecording(false);
    clearRecords();
    offeredInfo.reset();
    notice.clear();
    // Kept: also those of channels that are switched off.
    for (int c = 1; c <= Channels; ++c) ChLabeledEdit[static_cast<size_t>(c)] = ChannelOnText;
    Q_EMIT changed();
    Q_EMIT offersChanged();
}

void TrendSession::ChVrPowerButtonClick(int channel, bool on) {
    const auto c = static_cast<size_t>(channel);
    ChVrPowerButton[c] = on;
    ChLabeledEdit[c] = on ? ChannelOnText : QString();
    AbTrend1.Channel(channel).visible = on;
    Q_EMIT changed();
    Q_EMIT scalesChanged();
}

void TrendSession::ChComboBoxCloseUp(int channel, int ItemIndex) {
    ChComboBox[static_cast<size_t>(channel)] = ItemIndex;
    ChangeChanelSetting(channel);
    Q_EMIT changed();
}

void TrendSession::clearRecords() {
    endJournal();
    m_openedRuns.clear();
    forgetTakenItems();
    AbTrend1.ClearRecords();
    AbTrend2.ClearRecords();
    markers.clear();
}

// What is recorded from now on comes from the drive, so scales and units are its own again.
void TrendSession::forgetTakenItems() {
    m_takenDrive.clear();
    for (int c = 1; c <= Channels; ++c)
        if (std::exchange(m_takenItem[static_cast<size_t>(c)], std::nullopt)) ChangeChanelSetting(c);
}

void TrendSession::ClearTransparentButtonClick() {
    clearRecords();
    Q_EMIT changed();
    Q_EMIT offersChanged();
}

void TrendSession::CursorTransparentButtonClick() {
    opCursorOnRec = !opCursorOnRec;
    if (!opCursorOnRec) RecNoLabel = RecTimeLabel = NoRecordText;
    Q_EMIT changed();
}

// ---- Cursor ----

// The item that the channel's box has selected, or the one that a loaded recording was taken with.
TrendSession::ShownItem TrendSession::shownItem(int channel) const {
    const auto i = static_cast<size_t>(channel);
    if (m_takenItem[i]) return *m_takenItem[i];
    const StatusItemView item = statusItem(status(), statusItemOfEntry(status().DriveFamily, ChComboBox[i]));
    return {items.value(ChComboBox[i]), item.decimals, item.scale};
}

void TrendSession::AbTrend1NewCursorPos(const ValueAtCursor& value) {
    if (!value.DataValid) {
        ChLabeledEdit.fill({});
        RecNoLabel = RecTimeLabel = NoRecordText;
        Q_EMIT cursorTexts();
        return;
    }
    for (int c = 1; c <= Channels; ++c) {
        const auto i = static_cast<size_t>(c);
        const ShownItem item = shownItem(c);
        const TrendChannel& channel = AbTrend1.Channel(c);
        ChLabeledEdit[i] = channel.visible
                               ? trendValueText(channel, value.Digit[i - 1], item.decimals, item.scale)
                               : QString();
    }
    RecNoLabel = opCursorOnRec ? QString::number(value.RecordNo) : NoRecordText;
    RecTimeLabel = opCursorOnRec ? trendTimeText(value.Time) : NoRecordText;
    Q_EMIT cursorTexts();
}

void TrendSession::AbTrend2NewCursorPos(const ValueAtCursor& value) {
    for (size_t line = 1; line <= LogicLines; ++line) {
        const bool high = value.Digit[line - 1] == LogicHigh[line];
        LogicLabel[line] = !value.DataValid ? QString() : QString(QLatin1Char(high ? 'H' : 'L'));
    }
    const bool told = value.DataValid && opCursorOnRec;
    RecNoLabel = told ? QString::number(value.RecordNo) : NoRecordText;
    RecTimeLabel = told ? trendTimeText(value.Time) : NoRecordText;
    Q_EMIT cursorTexts();
}

// ---- Option dialog ----

// Kept: the first channel's top has its decimals, the others' are whole.
QString TrendSession::ChLeftEdit(int OptionLeftChannel) {
    const double ValueTo = AbTrend1.Channel(OptionLeftChannel).ValueTo;
    if (OptionLeftChannel != 1) return QString::number(static_cast<qint64>(ValueTo));
    return QString::number(ValueTo, 'g', 15).replace(QLatin1Char('.'), DecimalSep);
}

void TrendSession::OKTransparentButtonClick(int OptionLeftChannel, const QString& text,
                                            const std::array<int, Channels + 1>& penWidths) {
    LeftScaleCh = OptionLeftChannel;
    const auto left = static_cast<size_t>(OptionLeftChannel);
    TrendChannel& channel = AbTrend1.Channel(OptionLeftChannel);
    StatusItemView item = statusItem(status(), ChannelItem[left]);
    if (const std::optional<ShownItem>& taken = m_takenItem[left]) {
        item.decimals = taken->decimals;
        item.scale = taken->scale;
        item.format = channel.ValueFormat;
    }
    channel.ValueTo = std::max(0.0, ParseFixed(item.decimals, text));
    channel.DigitalTo = digitalOf(channel.ValueTo, item.scale);
    channel.ValueFormat = item.format;
    for (int c = 1; c <= Channels; ++c)
        AbTrend1.Channel(c).penWidth = std::clamp(penWidths[static_cast<size_t>(c)], 1, 5);
    Q_EMIT scalesChanged();
}

// ---- Files ----

FileResult TrendSession::saveTo(const QString& path) {
    FileResult saved = AbTrend1.SaveToFile(path);
    if (!saved.ok) {
        tell(saved.error);
        return saved;
    }
    m_unsaved = false;
    for (const TrendJournal::Run& run : m_journal.unsaved())
        if (m_openedRuns.contains(run.id)) m_journal.remove(run);
    m_openedRuns.clear();
    const FileResult described = writeWhole(trendInfoPath(path), trendInfoBytes(info()));
    tell(described.ok ? QStringLiteral("Saved ") % path : described.error);
    // What goes on being recorded is not in the file, so the journal of a running recording stays.
    if (!AbTrend1.recording()) m_journal.discard();
    Q_EMIT offersChanged();
    return saved;
}

void TrendSession::SaveScopeDataTransparentButtonClick() {
    if (const auto path = m_site.person.saveFile(ScopeFilter, ScopeExtension)) saveTo(*path);
}

void TrendSession::LoadScopeDataTransparentButtonClick() {
    if (const auto path = m_site.person.openFile(ScopeFilter)) loadFrom(*path);
}

// Kept: the run ends, while button and tick stay as they are.
void TrendSession::loadFrom(const QString& path) {
    if (m_journal.open()) m_journal.follow(AbTrend1.data.records);
    const qint64 first = firstOfLoad();
    const FileResult result = AbTrend1.LoadFromFile(path);
    m_journal.skipTo(AbTrend1.data.records);
    offerInfo(result.ok ? readWhole(trendInfoPath(path), InfoBytes) : FileContent(), first);
    tell(result.ok ? QStringLiteral("Loaded ") % path : result.error);
    Q_EMIT loaded();
    Q_EMIT offersChanged();
}

// Where what is loaded next will begin, behind the break that the load puts in.
qint64 TrendSession::firstOfLoad() const {
    const qint64 total = AbTrend1.TotalRecords();
    return total > 1 ? total + TrendRecorder::SeparatorRecords : total;
}

void TrendSession::offerInfo(const FileContent& described, qint64 firstRecord) {
    offeredInfo = described.ok ? readTrendInfo(described.bytes) : std::nullopt;
    if (!offeredInfo) return;
    for (TrendMarker& marker : offeredInfo->markers) marker.record += firstRecord;
}

TrendInfo TrendSession::info(qint64 fromRecord) const {
    TrendInfo described;
    const DriveLabelsRecord& labels = m_site.link.Labels;
    if (!m_takenDrive.isEmpty()) {
        described.drive = m_takenDrive;
        described.DriveFamily = m_takenFamily;
    } else if (!labels.DriveVrLabel.isEmpty()) {
        described.drive = QStringList{labels.DriveVrLabel, labels.VersionVrLabel, labels.HPVrLabel,
                                      labels.RatedVoltageVrLabel, labels.RatedCurrentVrLabel}
                              .join(QStringLiteral(", "));
        described.DriveFamily = status().DriveFamily;
    }
    const TrendRecords& records = AbTrend1.data.records;
    const qint64 first = records.isEmpty() ? -1 : records.nearestSample(fromRecord);
    if (first >= 0)
        if (const auto moment = trendMoment(records[first].Time))
            described.start = QDateTime(moment->date, moment->time);
    for (size_t c = 0; c < Channels; ++c) {
        const TrendChannel& channel = AbTrend1.data.channels[c];
        const int entry = ChComboBox[c + 1];
        const ShownItem item = shownItem(static_cast<int>(c) + 1);
        described.channels[c] = {entry,         item.name,        channel.ValueUnit, channel.ValueFormat,
                                 item.scale,    item.decimals,    channel.ValueTo,   channel.DigitalTo,
                                 channel.color, channel.penWidth, channel.visible};
    }
    for (const TrendMarker& marker : markers)
        if (marker.record >= fromRecord) described.markers.append({marker.record - fromRecord, marker.name});
    return described;
}

void TrendSession::takeOfferedInfo() {
    if (!offeredInfo) return;
    const TrendInfo taken = *std::exchange(offeredInfo, std::nullopt);
    for (int c = 1; c <= Channels; ++c) {
        const TrendChannelInfo& saved = taken.channels[static_cast<size_t>(c - 1)];
        TrendChannel& channel = AbTrend1.Channel(c);
        if (saved.entry >= 0) {
            ChComboBox[static_cast<size_t>(c)] = saved.entry;
            ChangeChanelSetting(c);
        }
        ChVrPowerButtonClick(c, saved.visible);
        channel.ValueFormat = saved.format;
        channel.ValueUnit = saved.unit;
        channel.ValueTo = saved.ValueTo;
        channel.DigitalTo = saved.DigitalTo;
        channel.color = saved.color;
        channel.penWidth = saved.penWidth;
        m_takenItem[static_cast<size_t>(c)] =
            ShownItem{saved.name, static_cast<quint8>(saved.decimals), static_cast<quint8>(saved.scale)};
    }
    m_takenDrive = taken.drive;
    m_takenFamily = taken.DriveFamily;
    markers += taken.markers;
    std::ranges::sort(markers, {}, &TrendMarker::record);
    setCaptions();
    Q_EMIT changed();
    Q_EMIT scalesChanged();
    Q_EMIT offersChanged();
}

void TrendSession::declineOfferedInfo() {
    offeredInfo.reset();
    Q_EMIT offersChanged();
}

void TrendSession::saveCsv(qint64 from, qint64 to) {
    const auto path = m_site.person.saveFile(CsvFilter, QStringLiteral("csv"));
    if (!path) return;
    const TrendInfo described = info();
    const FileResult saved = saveTrendCsv(*path, {AbTrend1.data, AbTrend2.data, described, from, to});
    tell(saved.ok ? QStringLiteral("Saved ") % *path : saved.error);
}

void TrendSession::addMarker(qint64 record, const QString& name) {
    markers.append({record, name});
    std::ranges::sort(markers, {}, &TrendMarker::record);
    Q_EMIT scalesChanged();
}

void TrendSession::removeMarker(qsizetype index) {
    if (index >= 0 && index < markers.size()) markers.removeAt(index);
    Q_EMIT scalesChanged();
}

// ---- Journal ----

void TrendSession::keepJournal() {
    if (m_journalFailed) return;
    FileResult kept;
    if (!m_journal.open()) {
        m_journalStart = AbTrend1.TotalRecords() - 1;
        kept = m_journal.begin(m_journalStart);
    }
    if (kept.ok) kept = m_journal.follow(AbTrend1.data.records);
    constexpr qint64 InfoEvery = 50;
    if (AbTrend1.TotalRecords() % InfoEvery == 1) m_journal.writeInfo(trendInfoBytes(info(m_journalStart)));
    if (kept.ok) return;
    m_journalFailed = true;
    tell(QStringLiteral("The recording goes on, but without a copy on disk. ") % kept.error);
}

void TrendSession::endJournal() {
    m_journalFailed = false;
    if (!m_journal.open()) return;
    m_journal.writeInfo(trendInfoBytes(info(m_journalStart)));
    m_unsaved ? m_journal.finish(AbTrend1.data.records) : m_journal.discard();
    m_unsaved = false;
}

QList<TrendJournal::Run> TrendSession::offeredRuns() const {
    QList<TrendJournal::Run> runs = m_journal.unsaved();
    runs.removeIf([this](const TrendJournal::Run& run) { return m_openedRuns.contains(run.id); });
    return runs;
}

void TrendSession::openRun(const TrendJournal::Run& run) {
    const qint64 first = firstOfLoad();
    FileResult result;
    for (const QString& file : run.files)
        // Its files are one run: no break between them.
        result = file == run.files.first() ? AbTrend1.LoadFromFile(file)
                                           : loadScopeFile(file, AbTrend1.data.records);
    m_journal.skipTo(AbTrend1.data.records);
    tell(result.ok ? QStringLiteral("The recording is here again. Save it to keep it.") : result.error);
    if (result.ok) m_openedRuns += run.id;
    offerInfo(readWhole(run.infoFile, InfoBytes), first);
    takeOfferedInfo();
    Q_EMIT loaded();
    Q_EMIT offersChanged();
}

void TrendSession::removeRun(const TrendJournal::Run& run) {
    m_journal.remove(run);
    Q_EMIT offersChanged();
}

}  // namespace kelvane

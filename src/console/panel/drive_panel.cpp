#include "console/panel/drive_panel.h"

#include <algorithm>

#include "console/connection/console_texts.h"
#include "console/panel/series_tables.h"
#include "link/number_text.h"

namespace kelvane {

namespace {

constexpr int Others = SeriesCount;
constexpr int MaxDecimals = 9;
constexpr int StatusWord = 1;  // second of the block, register 2101h
constexpr qint64 EmptyAxis = 20;
constexpr quint8 CommonAddress = 255;

const QString HexFormat = QStringLiteral("Data (Hex)");
const QString DecFormat = QStringLiteral("Data (Dec)");
const QString PleaseSelect = QStringLiteral("-- Please Select --");

// What a button writes, without the address; by its number.
constexpr std::array<const char*, 7> ButtonTails{"",           "0620000002", "0620000001", "0620000030",
                                                 "0620000003", "0620020002", "0620020001"};

QString buttonCommand(quint8 address, quint8 button) {
    return IntToBaseStr(address, 16, 2) % QString::fromLatin1(ButtonTails[button]);
}

// A cell's text as a number, as a person's locale writes it.
std::optional<double> toNumber(QString text) {
    bool ok = false;
    const double number = text.replace(DecimalSep, QLatin1String(".")).toDouble(&ok);
    return ok ? std::optional(number) : std::nullopt;
}

}  // namespace

StateLeds panelLeds(quint16 word, bool coded) {
    StateLeds lit = coded ? codedStateLeds(word) : plainStateLeds(word);
    lit.EXT = {};
    return lit;
}

void ChartSeries::add(double value) {
    values.push_back(value);
    if (values.size() <= Room) return;
    values.pop_front();
    ++firstX;
}

DrivePanel::DrivePanel(ConsoleTraffic& traffic, StringGrid& CmdAdvStringGrid, TickClock& clock,
                       const Voice& voice)
    : AdvStringGrid1(6),
      SendDefCmdTimer(clock, traffic.link),
      m_traffic(traffic),
      m_voice(voice),
      m_commandList(CmdAdvStringGrid) {
    AdvStringGrid1.setHeaders({QString(), QStringLiteral("Address"), QStringLiteral("Name"), DecFormat,
                               QStringLiteral("Unit"), QStringLiteral("Decimal")});
    AdvStringGrid1.mayType = [this](int column, int) { return column > 0 && mayEdit(); };
    SendDefCmdTimer.asksAnew = false;
    SendDefCmdTimer.mayAsk = [this] { return m_traffic.free(); };
    SendDefCmdTimer.next = [this] { return nextRequest(); };
}

bool DrivePanel::othersSelected() const {
    return seriesItems(m_traffic.link.BrandVariant()).value(SelDriveComboBoxItemIndex) ==
           QLatin1String("Others");
}

// ---- Table ----

void DrivePanel::selectSeries(int item) {
    SelDriveComboBoxItemIndex = item;
    SelDriveComboBoxChange();
}

void DrivePanel::SelDriveComboBoxChange() {
    if (SelDriveTag == 1) storeOthers();
    AdvStringGrid1.blank(AddressColumn, DecimalColumn, 1, AdvStringGrid1.RowCount() - 1);
    const int index = tableIndexOf(SelDriveComboBoxItemIndex, m_traffic.link.BrandVariant());
    SelDriveTag = index == Others;
    index == Others ? fillOthers() : fillSeries(index);
    rebuildChannels();
    Q_EMIT tableChanged();
}

void DrivePanel::fillSeries(int index) {
    const SeriesTable table = seriesTable(index);
    const auto names = seriesNames(index, m_voice.lang);
    DefCmdLabeledEdit = table.command;
    AdvStringGrid1.setRowCount(table.rows + 1);
    for (int row = 1; row <= table.rows; ++row) {
        const auto at = static_cast<size_t>(row - 1);
        StringGrid::RowFilling filling(AdvStringGrid1, row);
        AdvStringGrid1.setCell(AddressColumn, row, QStringLiteral("210") % IntToBaseStr(row - 1, 16, 1));
        AdvStringGrid1.setCell(NameColumn, row, names[at]);
        AdvStringGrid1.setCell(UnitColumn, row, QString::fromLatin1(table.units[at]));
        AdvStringGrid1.setCell(DecimalColumn, row, QString::number(table.decimals[at]));
    }
}

void DrivePanel::fillOthers() {
    DefCmdLabeledEdit = others.OthersDefCmd;
    AdvStringGrid1.setRowCount(std::clamp(others.OthersRowCount, 1, OthersRoom));
    fillAddresses();
    for (int row = 1; row < AdvStringGrid1.RowCount(); ++row) {
        const auto at = static_cast<size_t>(row);
        StringGrid::RowFilling filling(AdvStringGrid1, row);
        AdvStringGrid1.setCell(NameColumn, row, others.OthersName[at]);
        AdvStringGrid1.setCell(UnitColumn, row, others.OthersUnit[at]);
        AdvStringGrid1.setCell(DecimalColumn, row, others.OthersDeci[at]);
    }
}

void DrivePanel::fillAddresses() {
    const int first = BaseStrToInt(DefCmdLabeledEdit.mid(4, 4), 16);
    for (int row = 1; row < AdvStringGrid1.RowCount(); ++row)
        AdvStringGrid1.setCell(AddressColumn, row, IntToBaseStr(first + row - 1, 16, 4));
}

void DrivePanel::storeOthers() {
    if (SelDriveTag != 1) return;
    others.OthersRowCount = AdvStringGrid1.RowCount();
    others.OthersDefCmd = DefCmdLabeledEdit;
    for (int row = 1; row < std::min(AdvStringGrid1.RowCount(), OthersRoom); ++row) {
        const auto at = static_cast<size_t>(row);
        others.OthersName[at] = AdvStringGrid1.cell(NameColumn, row);
        others.OthersUnit[at] = AdvStringGrid1.cell(UnitColumn, row);
        others.OthersDeci[at] = AdvStringGrid1.cell(DecimalColumn, row);
    }
}

void DrivePanel::rebuildOthers() {
    AdvStringGrid1.blank(AddressColumn, DecimalColumn, 1, AdvStringGrid1.RowCount() - 1);
    SelDriveTag = 1;
    fillOthers();
    rebuildChannels();
    Q_EMIT tableChanged();
}

void DrivePanel::rebuildChannels() {
    channelItems = {PleaseSelect};
    for (int row = 1; row < AdvStringGrid1.RowCount() && !AdvStringGrid1.cell(NameColumn, row).isEmpty();
         ++row)
        channelItems += AdvStringGrid1.cell(NameColumn, row);
    ChComboBoxItemIndex.fill(0);
    Q_EMIT channelsChanged();
}

void DrivePanel::fillEmptyDecimals() {
    if (SelDriveTag != 1) return;
    for (int row = 1; row < AdvStringGrid1.RowCount(); ++row)
        if (AdvStringGrid1.cell(DecimalColumn, row).isEmpty())
            AdvStringGrid1.setCell(DecimalColumn, row, QStringLiteral("0"));
}

void DrivePanel::addRow() {
    if (AdvStringGrid1.RowCount() >= OthersRoom) return;
    AdvStringGrid1.setRowCount(AdvStringGrid1.RowCount() + 1);
    fillAddresses();
}

void DrivePanel::insertRow(int current) {
    if (AdvStringGrid1.RowCount() >= OthersRoom) return;
    AdvStringGrid1.insertBlankRow(current < 1 ? AdvStringGrid1.RowCount() : current);
    fillAddresses();
}

void DrivePanel::deleteRow(int current) {
    if (AdvStringGrid1.RowCount() <= 2) return AdvStringGrid1.blank(NameColumn, NameColumn, 1, 1);
    if (current >= 1) AdvStringGrid1.deleteRow(current);
    fillAddresses();
}

void DrivePanel::toggleFormat() {
    const bool hex = AdvStringGrid1.cell(DataColumn, 0) == HexFormat;
    AdvStringGrid1.setCell(DataColumn, 0, hex ? DecFormat : HexFormat);
}

void DrivePanel::typeCommand(const QString& text) {
    DefCmdLabeledEdit = text;
    if (SelDriveTag == 1) fillAddresses();
}

// ---- Address of the drive ----

void DrivePanel::typeId(const QString& text) {
    bool ok = false;
    const int id = text.trimmed().toInt(&ok);
    if (!ok) m_voice.person.tell(m_voice.text(Message::ValueNotLegal), QStringLiteral("Error Message"));
    takeId(ok ? id : CommonAddress);
}

void DrivePanel::stepId(int position) { takeId(position); }

void DrivePanel::takeId(int id) {
    MonitorUpDown = static_cast<quint8>(std::clamp(id, 0, 255));
    monitorIDLabeledEdit = QString::number(MonitorUpDown);
    if (!DefCmdLabeledEdit.isEmpty()) DefCmdLabeledEdit.replace(0, 2, IntToBaseStr(MonitorUpDown, 16, 2));
    Q_EMIT tableChanged();
}

// ---- Polling ----

bool DrivePanel::run(quint16 repeat) {
    RequestScheduler& link = m_traffic.link;
    if (DefCmdLabeledEdit.isEmpty()) {
        m_voice.person.tell(m_voice.text(Message::NoCommandSelected), QStringLiteral("Cofirm"));
        return false;
    }
    // Kept: it is the command list's column that is emptied; the page's own data stays on show.
    m_commandList.blank(3, 3, 1, AdvStringGrid1.RowCount() - 1);
    m_traffic.cutOff();
    link.Console.ListRunning = 0;
    link.ParamRead.ReadDataText.clear();  // nothing has been read in this run
    RepeatLeft = repeat;
    PendingDriveCmd = 0;
    m_running = true;
    m_hasRead = false;
    SendDefCmdTimer.start();
    Q_EMIT tableChanged();
    return true;
}

void DrivePanel::stop() {
    SendDefCmdTimer.stop();
    m_running = false;
    PendingDriveCmd = 0;
    setLeds({});
    Q_EMIT tableChanged();
}

// A button first; then what was read is shown, and read again.
std::optional<LinkRequest> DrivePanel::nextRequest() {
    if (PendingDriveCmd != 0) return pendingRequest();
    if (std::exchange(m_hasRead, true) && !takeReading()) return std::nullopt;
    return LinkRequest{GeneralTask, DefCmdLabeledEdit, Awaits::ReadDone};
}

// Kept: while polling the address is always FFh, whatever the ID box says.
LinkRequest DrivePanel::pendingRequest() {
    const quint8 button = std::exchange(PendingDriveCmd, quint8(0));
    return {WriteTask, buttonCommand(CommonAddress, button), Awaits::WriteDone};
}

// False when nothing is read any more.
bool DrivePanel::takeReading() {
    showWords();
    if (!addToChart()) {
        // Kept: with a cell that is no number the polling stays off until STOP and RUN.
        SendDefCmdTimer.stop();
        m_voice.person.tell(QStringLiteral("I got you !!"), QStringLiteral("Cofirm"));
        return false;
    }
    showStatus();
    return countRepeat();
}

int DrivePanel::wordCount() const {
    const ParamReadRecord& read = m_traffic.link.ParamRead;
    return static_cast<int>(
        std::min<qsizetype>(read.ReadDataText.size() / 2, static_cast<qsizetype>(read.ReadWords.size())));
}

void DrivePanel::showWords() {
    const bool hex = AdvStringGrid1.cell(DataColumn, 0) == HexFormat;
    for (int row = 1; row <= std::min(wordCount(), AdvStringGrid1.RowCount() - 1); ++row) {
        const quint16 word = m_traffic.link.ParamRead.ReadWords[static_cast<size_t>(row - 1)];
        const int decimals = std::clamp(AdvStringGrid1.cell(DecimalColumn, row).toInt(), 0, MaxDecimals);
        AdvStringGrid1.setCell(
            DataColumn, row,
            hex ? hexWord(word) % QLatin1Char('H') : InsertDecimalPoint(QString::number(word), decimals));
    }
}

// False when a chosen cell is no number.
bool DrivePanel::addToChart() {
    if (!chartShown) return true;
    bool numbers = true;
    for (int channel = 0; channel < Channels; ++channel) {
        const auto at = static_cast<size_t>(channel);
        Series[at].shown = ChComboBoxItemIndex[at] > 0;
        if (!Series[at].shown) continue;
        const std::optional<double> value =
            toNumber(AdvStringGrid1.cell(DataColumn, ChComboBoxItemIndex[at]));
        numbers = value.has_value();
        if (!numbers) break;
        Series[at].add(*value);
        followAxis(Series[at]);
    }
    Q_EMIT chartChanged();
    return numbers;
}

void DrivePanel::followAxis(const ChartSeries& series) {
    axisMaximum = series.largestX();
    axisMinimum = std::max<qint64>(axisMaximum - std::max(PointLabeledEdit.toInt(), 0), 0);
}

void DrivePanel::clearChart() {
    for (ChartSeries& series : Series) {
        series.values.clear();
        series.firstX = 0;
    }
    axisMinimum = 0;
    axisMaximum = EmptyAxis;
    Q_EMIT chartChanged();
}

void DrivePanel::showStatus() {
    if (wordCount() <= StatusWord) return;
    const int index = tableIndexOf(SelDriveComboBoxItemIndex, m_traffic.link.BrandVariant());
    setLeds(panelLeds(m_traffic.link.ParamRead.ReadWords[StatusWord], codedStatus(index)));
}

void DrivePanel::setLeds(const StateLeds& lit) {
    if (leds == lit) return;
    leds = lit;
    Q_EMIT ledsChanged();
}

bool DrivePanel::countRepeat() {
    if (RepeatLeft != 1) {
        if (RepeatLeft > 1) --RepeatLeft;
        return true;
    }
    SendDefCmdTimer.stop();
    m_running = false;
    Q_EMIT tableChanged();
    Q_EMIT ended();
    return false;
}

// ---- Buttons ----

void DrivePanel::press(DriveButton button) {
    const auto number = static_cast<quint8>(button);
    const bool polling = SendDefCmdTimer.running();
    const quint8 address = polling ? CommonAddress : MonitorUpDown;
    if (!polling) m_traffic.link.Console.ListRunning = 0;
    if (button == DriveButton::Stop) {
        // It goes right behind the exchange in hand, also when a failed read would be sent again first.
        PendingDriveCmd = 0;
        m_traffic.sendStop(buttonCommand(address, number));
        Q_EMIT motorStopGiven();
    } else if (polling) {
        PendingDriveCmd = number;
    } else {
        m_traffic.send(WriteTask, buttonCommand(address, number));
    }
}

}  // namespace kelvane

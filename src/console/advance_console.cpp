#include "console/advance_console.h"

#include <QFileInfo>
#include <algorithm>

#include "console/connection/console_texts.h"
#include "link/number_text.h"

namespace kelvane {

namespace {

constexpr int CloseLimit = 1000;  // ms that the line may still take to end an exchange
constexpr int MaxAddress = 255;
constexpr int DataDigits = 4;
constexpr qint64 MaxFileBytes = 16 * 1024 * 1024;

const QString CmlFilter = QStringLiteral("Command List File(*.cml)|*.cml");
const QString ErrorTitle = QStringLiteral("Error");

}  // namespace

AdvanceConsole::AdvanceConsole(const ConsoleSite& consoleSite)
    : site(consoleSite),
      traffic(site.link),
      log(site.link, site.clock),
      list(traffic, site.clock, site.voice),
      panel(traffic, list.CmdAdvStringGrid, site.clock, site.voice),
      listener(traffic, site.wallClock, site.voice),
      flasher(traffic, site.clock, site.voice),
      RxAdvStringGrid(5),
      m_closeLimit(site.clock, TickKind::RealTime, CloseLimit, [this] {
          traffic.cutOff();
          closeNow();
      }) {
    RxAdvStringGrid.setHeaders({QString(), QStringLiteral("Hex"), QStringLiteral("Dec"),
                                QStringLiteral("Bin"), QStringLiteral("ASCII")});
    connectLink();
    caption = advanceCaption(site.comSetup.shown);
    loadDefault();
    panel.SelDriveComboBoxChange();
}

void AdvanceConsole::connectLink() {
    RequestScheduler& link = site.link;
    connect(&link.Console, &ConsoleExchange::replied, this, &AdvanceConsole::takeGoodReply);
    connect(&link.Console, &ConsoleExchange::rowReplied, &list, &CommandList::takeFailure);
    connect(&link.Console, &ConsoleExchange::stopWanted, this, &AdvanceConsole::STOPTransparentButtonClick);
    connect(&site.comSetup, &ComSetup::closeWanted, this, &AdvanceConsole::followComSetup);
    connect(&list, &CommandList::ended, this, &AdvanceConsole::changed);
    connect(&panel, &DrivePanel::ended, this, &AdvanceConsole::changed);
    // A list that goes on could start the motor again.
    connect(&panel, &DrivePanel::motorStopGiven, this, [this] {
        list.stop();
        Q_EMIT changed();
    });
    connect(&traffic, &ConsoleTraffic::becameFree, this, [this] {
        if (m_closing) closeNow();
    });
}

// ---- Opening and closing ----

void AdvanceConsole::opened() {
    caption = advanceCaption(site.comSetup.shown);
    Q_EMIT changed();
}

void AdvanceConsole::stopAll() {
    STOPTransparentButtonClick();
    listener.STOPmonitorTransparentButtonClick();
    if (flasher.running()) flasher.stop();
}

bool AdvanceConsole::mayClose() {
    if (m_closing) return false;
    stopAll();
    if (traffic.free()) return true;
    // What is on the line ends first: the poll that follows the closing would run into it.
    m_closing = true;
    m_closeLimit.setEnabled(true);
    return false;
}

void AdvanceConsole::closeNow() {
    m_closing = false;
    m_closeLimit.setEnabled(false);
    Q_EMIT readyToClose();
}

FileResult AdvanceConsole::FormClose() {
    if (site.link.owner().console) {
        stopAll();
        traffic.cutOff();
    }
    panel.storeOthers();
    return saveDefault();
}

// ---- Single commands ----

void AdvanceConsole::complainOfNumber(const QString& text) {
    site.voice.person.tell(QStringLiteral("'%1' is not a valid integer value").arg(text), ErrorTitle,
                           BoxIcon::Stop);
}

QString AdvanceConsole::dataField(bool& legal) {
    if (!hexData) {
        const int value = DataLabeledEdit.toInt(&legal);
        if (!legal) complainOfNumber(DataLabeledEdit);
        return IntToBaseStr(value, 16, DataDigits);
    }
    if (DataLabeledEdit.size() <= DataDigits)
        return DataLabeledEdit.rightJustified(DataDigits, QLatin1Char('0'));
    // Kept: the command goes out all the same, without its data.
    site.voice.person.tell(site.voice.text(Message::ValueNotLegal), ErrorTitle);
    return {};
}

bool AdvanceConsole::fixedCommand(QString& command) {
    bool legal = false;
    const int id = IDLabeledEdit.toInt(&legal);
    if (!legal || id < 0 || id > MaxAddress) {
        complainOfNumber(IDLabeledEdit);
        return false;
    }
    const QString data = dataField(legal);
    command = IntToBaseStr(id, 16, 2) % (writeOption ? QStringLiteral("06") : QStringLiteral("03")) %
              AddressLabeledEdit % data;
    return legal;
}

void AdvanceConsole::SendFixTransparentButtonClick() {
    QString command;
    if (running() || !fixedCommand(command)) return;
    settings().ListRunning = 0;
    traffic.send(ConsoleTask, command);
}

void AdvanceConsole::SendAnyTransparentButtonClick(const QString& text) {
    if (running() || text.isEmpty()) return;
    settings().ListRunning = 0;
    traffic.send(ConsoleTask, text);
}

bool AdvanceConsole::InputDataEditEnter(const QString& text) {
    if (!record().CanSend || running() || text.isEmpty()) return false;
    site.link.Console.Log.CanSend = 0;
    SendAnyTransparentButtonClick(text);
    return true;
}

void AdvanceConsole::takeGoodReply(const QString& command, const QByteArray& RxData) {
    if (settings().ListRunning) return list.takeReply(command, RxData);
    if (command.mid(2, 2) != QLatin1String("06")) showWords(command, replyWords(RxData));
}

void AdvanceConsole::showWords(const QString& command, const std::vector<quint16>& words) {
    RxAdvStringGrid.blank(0, 4, 1, RxAdvStringGrid.RowCount() - 1);
    RxAdvStringGrid.setRowCount(static_cast<int>(words.size()) + 2);
    const int first = BaseStrToInt(command.mid(4, 4), 16);
    for (size_t i = 0; i < words.size() && i < RxRoom; ++i) {
        const int row = static_cast<int>(i) + 1;
        RxHexText[i] = hexWord(words[i]) % QLatin1Char('H');
        RxDecText[i] = QString::number(words[i]);
        RxBinText[i] = binaryWord(words[i]);
        RxAsciiText[i] = asciiWord(words[i]);
        StringGrid::RowFilling filling(RxAdvStringGrid, row);
        RxAdvStringGrid.setCell(0, row, IntToBaseStr(first + row - 1, 16, 4) % QLatin1Char('H'));
        RxAdvStringGrid.setCell(1, row, RxHexText[i]);
        RxAdvStringGrid.setCell(2, row, RxDecText[i]);
        RxAdvStringGrid.setCell(3, row, RxBinText[i]);
        RxAdvStringGrid.setCell(4, row, RxAsciiText[i]);
    }
    Q_EMIT singleReply();
}

// ---- Explanation ----

// A parameter of the drive's table, else a register of page "A".
std::optional<RegisterName> AdvanceConsole::nameOf(quint16 address) const {
    if (std::optional<RegisterName> known = registerNames ? registerNames(address) : std::nullopt)
        return known;
    const StringGrid& grid = panel.AdvStringGrid1;
    for (int row = 1; row < grid.RowCount(); ++row)
        if (BaseStrToInt(grid.cell(DrivePanel::AddressColumn, row), 16) == address)
            return RegisterName{{},
                                grid.cell(DrivePanel::NameColumn, row),
                                grid.cell(DrivePanel::UnitColumn, row),
                                grid.cell(DrivePanel::DecimalColumn, row).toInt()};
    return std::nullopt;
}

QString AdvanceConsole::explain(const ConsoleLine& line) const {
    return explainExchange(line.text, line.rtu, line.replyUs,
                           [this](quint16 address) { return nameOf(address); });
}

QString AdvanceConsole::explainLine(const HeardLine& heard) const {
    return explainHeard(heard, site.link.mode() == LinkMode::Rtu,
                        [this](quint16 address) { return nameOf(address); });
}

// ---- Runs ----

std::optional<quint16> AdvanceConsole::repeats() {
    bool ok = false;
    const quint16 count = RepeatLabeledEdit.trimmed().toUShort(&ok);
    if (!ok) complainOfNumber(RepeatLabeledEdit);
    return ok ? std::optional(count) : std::nullopt;
}

void AdvanceConsole::RUNTransparentButtonClick() {
    if (running() || page != ConsolePage::Connection) return;
    const std::optional<quint16> count = repeats();
    if (!count) return;
    connectionPage == ConnectionPage::A ? panel.run(*count) : list.run(*count);
    Q_EMIT changed();
}

void AdvanceConsole::STOPTransparentButtonClick() {
    list.stop();
    panel.stop();
    traffic.endRun();
    Q_EMIT changed();
}

// ---- Pages ----

void AdvanceConsole::showPage(ConsolePage shown) {
    if (running() || listener.running() || flasher.running()) return Q_EMIT changed();
    if (shown != page) traffic.cutOff();
    page = shown;
    settings().Monitor = page == ConsolePage::Monitor;
    settings().Flasher = page == ConsolePage::Flasher;
    Q_EMIT changed();
}

void AdvanceConsole::showConnectionPage(ConnectionPage shown) {
    connectionPage = shown;
    if (shown == ConnectionPage::A) RepeatLabeledEdit = QStringLiteral("0");
    Q_EMIT changed();
}

void AdvanceConsole::NewTransparentButtonClick() {
    connectionPage == ConnectionPage::A ? panel.addRow() : list.addRow();
}

void AdvanceConsole::InsertTransparentButtonClick(int current) {
    connectionPage == ConnectionPage::A ? panel.insertRow(current) : list.insertRow(current);
}

void AdvanceConsole::DelTransparentButtonClick(int current) {
    connectionPage == ConnectionPage::A ? panel.deleteRow(current) : list.deleteRow(current);
}

// ---- Time-outs and com setup ----

bool AdvanceConsole::storeTimeOut(TimeOutTag tag, const QString& text) {
    bool ok = false;
    const uint value = text.trimmed().toUInt(&ok);
    if (!ok) {
        complainOfNumber(text);
        return false;
    }
    const bool first = tag == TimeOutTag::First;
    (first ? settings().TimeOut1 : settings().TimeOut2) = value;
    (first ? TimeOutCaption : TimeOut2Caption) = timeOutCaption(text.trimmed());
    Q_EMIT changed();
    return true;
}

void AdvanceConsole::prepareComSetup() {
    if (running() || listener.running()) return;
    traffic.cutOff();
    site.comSetup.shown.OKBitBtnEnabled = true;
}

void AdvanceConsole::followComSetup() {
    caption = advanceCaption(site.comSetup.shown);
    const QString raised = site.comSetup.shown.consoleTimeOutCaption;
    if (!raised.isEmpty()) TimeOutCaption = raised;
    Q_EMIT changed();
}

// ---- Files ----

QString AdvanceConsole::defaultPath() const { return site.programFolder % QStringLiteral("/default.cml"); }

CommandListFile AdvanceConsole::state() {
    return {.ComSetup = site.comSetup.shown,
            .others = panel.others,
            .AdvStringGrid1Rows = panel.AdvStringGrid1.RowCount(),
            .rows = list.rows(),
            .RepliedFormat = list.CmdAdvStringGrid.cell(CommandList::DataColumn, 0),
            .TimeOut1 = settings().TimeOut1,
            .timeOutDisplay = TimeOutCaption,
            .breakCells = listener.breakCells()};
}

QByteArray AdvanceConsole::SaveFile() {
    if (panel.othersSelected()) panel.SelDriveComboBoxChange();
    return commandListBytes(state());
}

FileResult AdvanceConsole::saveDefault() { return writeWhole(defaultPath(), SaveFile()); }

void AdvanceConsole::SaveClick() {
    if (const auto path = askToSave(site.voice.person, CmlFilter, SaveFile())) Q_EMIT fileOpened(*path);
}

void AdvanceConsole::OpenClick() {
    if (running()) return;
    const std::optional<QString> path = site.voice.person.openFile(CmlFilter);
    if (path) openPath(*path);
}

void AdvanceConsole::openPath(const QString& path) {
    if (running()) return;
    const FileContent content = readWhole(path, MaxFileBytes);
    if (!content.ok) {
        site.voice.person.tell(content.error, ErrorTitle, BoxIcon::Stop);
        return Q_EMIT fileMissing(path);
    }
    LoadFile(path, content.bytes, true);
    if (panel.othersSelected()) panel.rebuildOthers();
    Q_EMIT fileOpened(path);
}

void AdvanceConsole::loadDefault() {
    const FileContent content = readWhole(defaultPath(), MaxFileBytes);
    LoadFile({}, content.bytes, content.ok);
}

// Kept: what is wrong in the file is swallowed; what stood before it has been taken.
void AdvanceConsole::LoadFile(const QString& path, const QByteArray& bytes, bool ok) {
    if (!path.isEmpty()) projectName = QFileInfo(path).fileName();
    CommandListFile file = state();
    const CommandListRead read = readCommandList(bytes, file);
    take(file, read);
    caption = ok && read.ok ? advanceCaption(site.comSetup.shown)
                            : advanceCaption(site.comSetup.shown, site.link.port().settings());
    Q_EMIT changed();
}

void AdvanceConsole::take(const CommandListFile& file, const CommandListRead& read) {
    if (read.pageA) panel.others = file.others;
    if (!read.pageB) return;
    list.setRows(file.rows);
    list.CmdAdvStringGrid.setCell(CommandList::DataColumn, 0, file.RepliedFormat);
    settings().TimeOut1 = file.TimeOut1;
    TimeOutCaption = file.timeOutDisplay;
    listener.setBreakCells(file.breakCells);
}

}  // namespace kelvane

#include "parameters/parameter_session.h"

namespace kelvane {

namespace {

constexpr int BlankedOnClose = 300;  // rows of the comparison, by design

const QString Cofirm = QStringLiteral("Cofirm");

}  // namespace

ParameterSession::ParameterSession(RequestScheduler& link, TickClock& clock, const GroupNameTable& names)
    : columns({&DriveAdvStringGrid, &SubDriveAdvStringGrid, &FileAdvStringGrid, &SubFileAdvStringGrid,
               &CompareAdvStringGrid}),
      bench{link, clock, names, {}},
      progress(link, clock),
      reader(bench, driveTable, screen, progress),
      keypad(bench, screen),
      writer(bench, screen, progress),
      comparisonEngine(driveTable, fileTable, comparison, link.operatorAsked(), link.lang()) {
    DriveAdvStringGrid.cellColours = [this](int column, int row) {
        return ProcessAdvStringGridGetCellColor(DriveAdvStringGrid, driveTable.identity.family, column, row);
    };
    FileAdvStringGrid.cellColours = [this](int column, int row) {
        return ProcessAdvStringGridGetCellColor(FileAdvStringGrid, fileTable.identity.family, column, row);
    };
    SubDriveAdvStringGrid.cellColours = [this](int column, int row) {
        return ProcessAdvStringGridGetCellColor(SubDriveAdvStringGrid, driveTable.identity.family, column,
                                                row);
    };
    SubFileAdvStringGrid.cellColours = [this](int column, int row) {
        return ProcessAdvStringGridGetCellColor(SubFileAdvStringGrid, fileTable.identity.family, column, row);
    };
    CompareAdvStringGrid.cellColours = [this](int column, int row) {
        const ParameterTable& table = screen.DriveTabSheet ? driveTable : fileTable;
        return ProcessAdvStringGridGetCellColor(CompareAdvStringGrid, table.identity.family, column, row);
    };
    reader.hideColumnsFor = [this](Family family) { columns.setForFamily(family); };
    keypad.closeTable = [this](const std::function<void()>& then) {
        if (!screen.DriveTabSheet) return then();
        closeTableClick(TableSide::Drive, then);
    };
    connect(&link, &RequestScheduler::changed, this, &ParameterSession::mirrorModel);
    connect(&reader, &ParameterReader::screenChanged, this, &ParameterSession::screenChanged);
    connect(&keypad, &KeypadSource::screenChanged, this, &ParameterSession::screenChanged);
    connect(&reader, &ParameterReader::started, this, [this] {
        driveHistory.closed();
        m_driveNode = -1;
        m_held.clear();
    });
    connect(&reader, &ParameterReader::rowFilled, this,
            [this](int row) { rememberHeld(DriveAdvStringGrid, row); });
    connect(&reader, &ParameterReader::ended, this, [this] { driveHistory.tableRead(); });
    connect(&writer, &ParameterWriter::rowReadBack, this,
            [this](int row) { rememberHeld(writer.AdvStringGrid1, row); });
    connect(&writer, &ParameterWriter::closed, this, &ParameterSession::refreshSubTables);
    mirrorModel();
}

// The label follows the link's until "Keypad" is written over it.
void ParameterSession::mirrorModel() {
    const QString& model = bench.link.Labels.DriveVrLabel;
    if (model == m_linkModel) return;
    m_linkModel = model;
    screen.ModelVrLabel = model;
    Q_EMIT screenChanged();
}

std::optional<QString> ParameterSession::heldByDrive(const QString& PrNo) const {
    const auto found = m_held.constFind(PrNo);
    return found == m_held.constEnd() ? std::nullopt : std::optional<QString>(*found);
}

void ParameterSession::rememberHeld(const StringGrid& grid, int row) {
    m_held.insert(grid.cell(column::PrNo, row), grid.cell(column::Data, row));
}

// ---- Life of the window ----

void ParameterSession::opened() {
    screen.ShowReservedParameters = bench.link.DriveStatus.ReservedEnabled != 0;
    Q_EMIT screenChanged();
}

void ParameterSession::FormClose() {
    writer.FormClose();
    reader.stop();
    closeSide(TableSide::Drive);
    closeSide(TableSide::File);
    driveTable.clear();
    fileTable.clear();
    CompareAdvStringGrid.blank(column::PrNo, column::Note, 1, BlankedOnClose);
    screen.DriveTabSheet = screen.FileTabSheet = screen.CompareTabSheet = false;
    screen.active = ParameterTab::None;
    screen.ResetParameter = false;
    screen.driveSubShown = screen.fileSubShown = false;
    screen.RparaAbLED = false;
    Q_EMIT screenChanged();
}

// ---- Tabs and tree ----

bool ParameterSession::anyTableOpen() {
    if (screen.DriveTabSheet || screen.FileTabSheet) return true;
    bench.link.operatorAsked().tell(QStringLiteral("There is no parameter table be opened !"), Cofirm);
    return false;
}

void ParameterSession::show(ParameterTab tab) {
    if (tab == ParameterTab::Drive) screen.DriveTabSheet = true;
    if (tab == ParameterTab::File) screen.FileTabSheet = true;
    if (tab == ParameterTab::Compare) screen.CompareTabSheet = true;
    screen.active = tab;
    Q_EMIT screenChanged();
}

void ParameterSession::fileLoaded() {
    const TableIdentity& identity = fileTable.identity;
    fileHistory.tableRead();
    m_fileNode = -1;
    screen.fileSubShown = false;
    screen.fileRoot = {treeRootText(TableSide::File, true, identity.model),
                       treeChildren(identity.family, groupNamesIn(FileAdvStringGrid)), true};
    columns.setForFamily(identity.family);
    show(ParameterTab::File);
}

ComparisonOutcome ParameterSession::compare(const QString& kind) {
    const ComparisonOutcome outcome = comparisonEngine.compare(kind);
    if (outcome.shown) show(ParameterTab::Compare);
    return outcome;
}

void ParameterSession::ParaTreeViewChange(TableSide side, int index) {
    const bool drive = side == TableSide::Drive;
    const QStringList& children = drive ? screen.driveRoot.children : screen.fileRoot.children;
    if (index < 0 || index >= children.size()) return;
    (drive ? m_driveNode : m_fileNode) = index;
    (drive ? screen.driveSubShown : screen.fileSubShown) = index > 0;
    const ParameterTable& table = drive ? driveTable : fileTable;
    if (table.identity.family == Family::Hazel) columns.setForFamily(Family::Hazel);
    if (index > 0) (drive ? driveSub : fileSub).select(children[index], index);
    show(drive ? ParameterTab::Drive : ParameterTab::File);
}

void ParameterSession::refreshSubTables() {
    if (m_driveNode > 0) driveSub.select(screen.driveRoot.children.value(m_driveNode), m_driveNode);
    if (m_fileNode > 0) fileSub.select(screen.fileRoot.children.value(m_fileNode), m_fileNode);
    Q_EMIT screenChanged();
}

void ParameterSession::closeTableClick(TableSide side, const std::function<void()>& then) {
    screen.active = side == TableSide::Drive ? ParameterTab::Drive : ParameterTab::File;
    CloseTab(then);
}

void ParameterSession::CloseTab(const std::function<void()>& then) {
    const ParameterTab tab = screen.active;
    if (tab == ParameterTab::None) return;
    const auto goOn = [this, tab, then] {
        closeTab(tab);
        if (then) then();
    };
    const bool mayBeSaved = tab != ParameterTab::Compare;
    if (!mayBeSaved || !bench.link.operatorAsked().yes(bench.link.lang().MsgStr(17), Cofirm)) return goOn();
    screen.FileAbLED = tab == ParameterTab::File;
    const TableSide side = screen.FileAbLED ? TableSide::File : TableSide::Drive;
    Q_EMIT sourceLit(side);
    if (!saveTable) return goOn();
    saveTable(side, goOn);
}

void ParameterSession::closeTab(ParameterTab tab) {
    if (tab == ParameterTab::Drive) {
        closeSide(TableSide::Drive);
        screen.DriveTabSheet = false;
    } else if (tab == ParameterTab::File) {
        closeSide(TableSide::File);
        screen.FileTabSheet = false;
    } else {
        screen.CompareTabSheet = false;
    }
    if (screen.active == tab) screen.active = ParameterTab::None;
    for (const ParameterTab next : {ParameterTab::Drive, ParameterTab::File, ParameterTab::Compare})
        if (screen.active == ParameterTab::None && screen.visible(next)) screen.active = next;
    Q_EMIT screenChanged();
}

void ParameterSession::closeSide(TableSide side) {
    const bool drive = side == TableSide::Drive;
    TreeRoot& root = drive ? screen.driveRoot : screen.fileRoot;
    root = TreeRoot{treeRootText(side, false, {}), {}, false};
    (drive ? m_driveNode : m_fileNode) = -1;
    (drive ? driveHistory : fileHistory).closed();
    if (!drive) return;
    reader.DriveTableComplete = 0;
    m_held.clear();
}

// ---- Writing ----

void ParameterSession::startWrite(WriteMode mode) {
    bench.whenOnLine([this, mode] { chooseWriteSource(mode); });
}

void ParameterSession::chooseWriteSource(WriteMode mode) {
    if (!anyTableOpen()) return;
    if (!screen.DriveTabSheet || !screen.FileTabSheet) {
        write(screen.DriveTabSheet ? TableSide::Drive : TableSide::File, mode, false);
        return;
    }
    m_wantedMode = mode;
    Q_EMIT writeSourceWanted(QStringLiteral("Select Parameter Source to Write"));
}

void ParameterSession::writeSourceChosen(TableSide side) { write(side, m_wantedMode, false); }

void ParameterSession::ResetParameterClick() {
    bench.whenOnLine([this] {
        if (anyTableOpen() && screen.DriveTabSheet) write(TableSide::Drive, WriteMode::All, true);
    });
}

void ParameterSession::write(TableSide side, WriteMode mode, bool useDefaults) {
    const bool drive = side == TableSide::Drive;
    ParameterTable& table = drive ? driveTable : fileTable;
    m_writeFamily = table.identity.family;
    writer.SelectWriteSource({&table, drive ? &driveHistory : &fileHistory}, mode, useDefaults);
}

QString ParameterSession::writeSummaryLine() const {
    const auto held = [this](const QString& PrNo) { return heldByDrive(PrNo); };
    return writeSummaryText(writeSummaryOf(writer.AdvStringGrid1, m_writeFamily, driveFamily(), held));
}

}  // namespace kelvane

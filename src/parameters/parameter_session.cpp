#include "parameters/parameter_session.h"

#include <QDir>
#include <QFileInfo>

namespace kelvane {

namespace {

constexpr int BlankedOnClose = 300;  // rows of the comparison, by design

const QString Cofirm = QStringLiteral("Cofirm");

}  // namespace

ParameterSession::ParameterSession(RequestScheduler& link, TickClock& clock, const GroupNameTable& names,
                                   const Voice& voice, const ParameterFiles& files)
    : columns({&DriveAdvStringGrid, &SubDriveAdvStringGrid, &FileAdvStringGrid, &SubFileAdvStringGrid,
               &CompareAdvStringGrid}),
      site{link, clock, names, voice, {}},
      progress(link, clock),
      reader(site, driveTable, screen, progress),
      keypad(site, screen),
      writer(site, screen, progress),
      comparisonEngine(driveTable, fileTable, comparison, voice.person, voice.lang),
      fileWork{driveTable, fileTable, comparison,   screen,     reader.DriveTableComplete,
               progress,   clock,     voice.person, voice.lang, files.spreadsheet},
      saver(fileWork, choices),
      loader(fileWork),
      backup(files.programFolder),
      m_files(files) {
    connectGrids();
    connectEngines();
    mirrorModel();
}

void ParameterSession::connectGrids() {
    for (StringGrid* grid :
         {&DriveAdvStringGrid, &SubDriveAdvStringGrid, &FileAdvStringGrid, &SubFileAdvStringGrid})
        grid->boxRests = [grid](int row) { return !isWritable(*grid, row); };
    driveHistory.changed = fileHistory.changed = [this] { Q_EMIT historyChanged(); };
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
        const ParameterTable& table = screen.DriveTabSheetVisible ? driveTable : fileTable;
        return ProcessAdvStringGridGetCellColor(CompareAdvStringGrid, table.identity.family, column, row);
    };
}

void ParameterSession::connectEngines() {
    reader.hideColumnsFor = [this](Family family) { columns.setForFamily(family); };
    keypad.closeTable = [this](const std::function<void()>& then) {
        if (!screen.DriveTabSheetVisible) return then();
        closeTableClick(TableSide::Drive, then);
    };
    connect(&site.link, &RequestScheduler::changed, this, &ParameterSession::mirrorModel);
    connect(&site.link, &RequestScheduler::initialRun, this,
            [this] { m_tableOfDriveOnLine = m_backedUp = false; });
    connect(&reader, &ParameterReader::screenChanged, this, &ParameterSession::screenChanged);
    connect(&keypad, &KeypadSource::screenChanged, this, &ParameterSession::screenChanged);
    connect(&reader, &ParameterReader::started, this, [this] {
        driveHistory.closed();
        driveSub.leave();
        m_tableOfDriveOnLine = true;
        Q_EMIT told({});
    });
    connect(&reader, &ParameterReader::ended, this, [this](bool complete) {
        driveHistory.tableRead();
        const ProgressDialog& done = progress;
        Q_EMIT told(complete ? QStringLiteral("%1 parameters read.").arg(done.count)
                             : QStringLiteral("Reading stopped: %1 of %2 parameters read.")
                                   .arg(done.count)
                                   .arg(done.total));
    });
    connect(&writer, &ParameterWriter::runEnded, this, [this](int written, int refused) {
        Q_EMIT told(QStringLiteral("%1 written, %2 refused.").arg(written).arg(refused));
    });
    connect(&saver, &TableSaver::saved, this, [this](const QString& path) {
        Q_EMIT told(QStringLiteral("Saved %1.").arg(QFileInfo(path).fileName()));
    });
    connect(&loader, &TableLoader::loaded, this, [this](const QString& path) {
        Q_EMIT told(QStringLiteral("Loaded %1.").arg(QFileInfo(path).fileName()));
    });
    connect(&loader, &TableLoader::notLoaded, this, [this] { Q_EMIT told({}); });
    connect(&writer, &ParameterWriter::writesBegin, this, &ParameterSession::backUp);
    connect(&writer, &ParameterWriter::rowReadBack, this, [this](int row) {
        if (m_driveRows && m_tableOfDriveOnLine)
            driveHistory.holds(m_driveRows->rowOf(writer.AdvStringGrid1, row),
                               writer.AdvStringGrid1.cell(column::Data, row));
    });
    connect(&writer, &ParameterWriter::closed, this, &ParameterSession::refreshSubTables);
    connect(&loader, &TableLoader::tableLoaded, this, &ParameterSession::fileLoaded);
    connect(&loader, &TableLoader::comparisonLoaded, this, [this] { show(ParameterTab::Compare); });
}

// The label follows the link's until "Keypad" is written over it.
void ParameterSession::mirrorModel() {
    const QString& model = site.link.Labels.DriveVrLabel;
    if (model == m_linkModel) return;
    m_linkModel = model;
    screen.ModelVrLabel = model;
    Q_EMIT screenChanged();
}

std::optional<QString> ParameterSession::heldByDrive(int listRow) const {
    if (!m_driveRows || !m_tableOfDriveOnLine) return std::nullopt;
    return driveHistory.readValue(m_driveRows->rowOf(writer.AdvStringGrid1, listRow));
}

// One backup of each drive that is written to, as it was read. A failure is shown and never stops the writes.
void ParameterSession::backUp() {
    if (m_files.programFolder.isEmpty() || m_backedUp) return;
    if (!screen.DriveTabSheetVisible || !reader.DriveTableComplete || !m_tableOfDriveOnLine) {
        site.link.ShowHistoryMsg(QStringLiteral("No backup: the table of this drive has not been read."));
        return;
    }
    const FileResult written = backup.write(driveTable, screen.RparaAbLEDShown, now(),
                                            [this](int row) { return driveHistory.readValue(row); });
    m_backedUp = written.ok;
    const QString told =
        written.ok
            ? QStringLiteral("Backup of the drive's table: %1").arg(QDir::toNativeSeparators(backup.path()))
            : QStringLiteral("The drive's table could not be backed up: %1").arg(written.error);
    site.link.ShowHistoryMsg(told);
    if (!written.ok) site.voice.person.tell(told, QStringLiteral("Error"), BoxIcon::Stop);
}

// ---- Life of the window ----

void ParameterSession::opened() {
    screen.ShowReservedParametersEnabled = site.link.DriveStatus.ReservedEnabled != 0;
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
    screen.DriveTabSheetVisible = screen.FileTabSheetVisible = screen.CompareTabSheetVisible = false;
    screen.active = ParameterTab::None;
    screen.ResetParameterEnabled = false;
    screen.driveSubShown = screen.fileSubShown = false;
    screen.RparaAbLEDShown = false;
    Q_EMIT screenChanged();
}

// ---- Tabs and tree ----

bool ParameterSession::anyTableOpen() {
    if (screen.DriveTabSheetVisible || screen.FileTabSheetVisible) return true;
    site.voice.person.tell(QStringLiteral("There is no parameter table be opened !"), Cofirm);
    return false;
}

void ParameterSession::show(ParameterTab tab) {
    if (tab == ParameterTab::Drive) screen.DriveTabSheetVisible = true;
    if (tab == ParameterTab::File) screen.FileTabSheetVisible = true;
    if (tab == ParameterTab::Compare) screen.CompareTabSheetVisible = true;
    screen.active = tab;
    Q_EMIT screenChanged();
}

void ParameterSession::fileLoaded() {
    const TableIdentity& identity = fileTable.identity;
    fileHistory.tableRead();
    fileSub.leave();
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
    (drive ? screen.driveSubShown : screen.fileSubShown) = index > 0;
    const ParameterTable& table = drive ? driveTable : fileTable;
    if (table.identity.family == Family::Hazel) columns.setForFamily(Family::Hazel);
    if (index > 0) (drive ? driveSub : fileSub).select(children[index], index);
    show(drive ? ParameterTab::Drive : ParameterTab::File);
}

void ParameterSession::refreshSubTables() {
    driveSub.refresh();
    fileSub.refresh();
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
    if (tab == ParameterTab::Compare) return goOn();
    const BoxAnswer answer = site.voice.person.box(site.voice.text(Message::SaveBeforeClose), Cofirm,
                                                   BoxIcon::Question, BoxButtons::YesNoOrLeave);
    if (answer == BoxAnswer::No) return goOn();
    if (answer != BoxAnswer::Yes) return;
    screen.FileAbLEDLit = tab == ParameterTab::File;
    const TableSide side = screen.FileAbLEDLit ? TableSide::File : TableSide::Drive;
    Q_EMIT sourceLit(side);
    saver.save(tab, goOn);
}

void ParameterSession::closeTab(ParameterTab tab) {
    if (tab == ParameterTab::Drive) {
        closeSide(TableSide::Drive);
        screen.DriveTabSheetVisible = false;
    } else if (tab == ParameterTab::File) {
        closeSide(TableSide::File);
        screen.FileTabSheetVisible = false;
    } else {
        screen.CompareTabSheetVisible = false;
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
    (drive ? driveSub : fileSub).leave();
    (drive ? driveHistory : fileHistory).closed();
    if (!drive) return;
    reader.DriveTableComplete = 0;
    m_tableOfDriveOnLine = false;
}

// ---- Writing ----

void ParameterSession::startWrite(WriteMode mode) {
    site.whenOnLine([this, mode] { chooseWriteSource(mode); });
}

void ParameterSession::chooseWriteSource(WriteMode mode) {
    if (!anyTableOpen()) return;
    if (!screen.DriveTabSheetVisible || !screen.FileTabSheetVisible) {
        write(screen.DriveTabSheetVisible ? TableSide::Drive : TableSide::File, mode, false);
        return;
    }
    m_wantedMode = mode;
    screen.FileAbLEDLit = screen.active == ParameterTab::File;
    Q_EMIT sourceLit(screen.FileAbLEDLit ? TableSide::File : TableSide::Drive);
    Q_EMIT writeSourceWanted(QStringLiteral("Select Parameter Source to Write"));
}

void ParameterSession::writeSourceChosen(TableSide side) { write(side, m_wantedMode, false); }

void ParameterSession::ResetParameterClick() {
    site.whenOnLine([this] {
        if (anyTableOpen() && screen.DriveTabSheetVisible) write(TableSide::Drive, WriteMode::All, true);
    });
}

void ParameterSession::write(TableSide side, WriteMode mode, bool useDefaults) {
    const bool drive = side == TableSide::Drive;
    ParameterTable& table = drive ? driveTable : fileTable;
    Q_EMIT told({});
    m_writeFamily = table.identity.family;
    m_driveRows.emplace(DriveAdvStringGrid);
    writer.SelectWriteSource({&table, drive ? &driveHistory : &fileHistory}, mode, useDefaults);
}

QString ParameterSession::writeSummaryLine() const {
    const auto held = [this](int row) { return heldByDrive(row); };
    return writeSummaryText(writeSummaryOf(writer.AdvStringGrid1, m_writeFamily, driveFamily(), held));
}

}  // namespace kelvane

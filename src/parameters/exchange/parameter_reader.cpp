#include "parameters/exchange/parameter_reader.h"

#include <utility>

#include "parameters/table/sub_table.h"

namespace kelvane {

namespace {

constexpr int ReadProgressWidth = 400;

const QString Cofirm = QStringLiteral("Cofirm");

QString readTail(Family family) {
    if (family == Family::Hazel) return QStringLiteral("0004");
    if (family == Family::Keypad) return QStringLiteral("0001");
    return QStringLiteral("000F");
}

ParameterRecord recordOf(const ParamReadRecord& read) {
    return {.ParaData = read.ReadField[0],
            .ParaMax = read.ReadField[1],
            .ParaMin = read.ReadField[2],
            .ParaAttr = read.ReadField[3],
            .ParaDefault = read.ReadField[4],
            .ParaName = read.ReadName,
            .ParaUnit = read.ReadUnit};
}

}  // namespace

ParameterReader::ParameterReader(ParameterSite& site, ParameterTable& table, ParameterScreen& screen,
                                 ProgressDialog& progress)
    : m_site(site),
      m_table(table),
      m_screen(screen),
      m_progress(progress),
      m_chain(site.clock, site.link),
      m_restWatch(site.clock, m_chain, [this] { tellNoAnswer(); }) {
    m_chain.next = [this] { return nextRequest(); };
    m_chain.answered = [this](const LinkRequest&) { takeReply(); };
    connect(&progress, &ProgressDialog::stopWaiting, this, &ParameterReader::stopWaiting);
    connect(&site.link, &RequestScheduler::keypadTableReady, this,
            [this] { ReadDriveTransparentButtonClick(); });
    // A link that goes to rest answers no more, also when it was not this window's.
    connect(&site.link, &RequestScheduler::initialRun, this, [this] {
        if (reading()) stop();
    });
    connect(&site.link, &RequestScheduler::parameterReadStopped, this, &ParameterReader::stop);
}

int ParameterReader::highestNumber(int G) const {
    const auto& counts = m_site.link.DriveStatus.GroupParamCount;
    return G >= 0 && static_cast<size_t>(G) < counts.size() ? counts[static_cast<size_t>(G)] : 0;
}

// ---- Start ----

void ParameterReader::ReadDriveTransparentButtonClick() {
    m_site.goOnLine([this] {
        if (m_site.offLine()) {
            m_site.voice.person.tell(m_site.voice.text(Message::PortNotReady), Cofirm);
            forgetReservedWish();
        } else {
            startRead();
        }
    });
}

void ParameterReader::startRead() {
    prepareTable();
    Plan plan;
    const bool groups = fillGroupList(plan);
    Q_EMIT started();
    Q_EMIT screenChanged();
    if (!groups) {
        m_site.voice.person.tell(QStringLiteral("There is no group to load !!"), Cofirm);
        forgetReservedWish();
        return;
    }
    m_table.grid.setRowCount(plan.rows);
    ReadGroup = 0;
    ReadNumber = 0;
    ReadRow = 1;
    showTree();
    ReadPending = 0;
    m_chain.start();
    m_restWatch.start();
    showProgress(plan);
}

void ParameterReader::ShowReservedParametersClick() {
    m_reservedShown = m_screen.RparaAbLEDShown;
    ReadReservedWanted = 1;
    m_screen.RparaAbLEDShown = true;
    Q_EMIT screenChanged();
    ReadDriveTransparentButtonClick();
}

// The read that it was meant for did not start: the next one is a plain one.
void ParameterReader::forgetReservedWish() {
    if (!std::exchange(ReadReservedWanted, quint8(0))) return;
    m_screen.RparaAbLEDShown = m_reservedShown;
    Q_EMIT screenChanged();
}

void ParameterReader::prepareTable() {
    if (hideColumnsFor) hideColumnsFor(family());
    m_table.clear();
    takeIdentity();
    m_screen.DriveTabSheetVisible = true;
    if (m_screen.active == ParameterTab::None) m_screen.active = ParameterTab::Drive;
    m_screen.ResetParameterEnabled = true;
    DriveTableComplete = 0;
}

void ParameterReader::takeIdentity() {
    const DriveLabelsRecord& labels = m_site.link.Labels;
    m_table.identity = {.model = m_screen.ModelVrLabel,
                        .version = labels.VersionVrLabel,
                        .ratedCurrent = labels.RatedCurrentVrLabel,
                        .ratedVoltage = labels.RatedVoltageVrLabel,
                        .hp = labels.HPVrLabel,
                        .family = family(),
                        .groupCount = m_site.link.DriveStatus.GroupCount};
    for (int G = 0; G < static_cast<int>(m_site.link.DriveStatus.GroupParamCount.size()); ++G)
        m_table.identity.groupParamCount[static_cast<size_t>(G)] = static_cast<quint16>(highestNumber(G));
}

bool ParameterReader::fillGroupList(Plan& plan) {
    m_screen.RparaAbLEDShown = reservedIncluded();
    GrpNameCheckListBox.clear();
    for (int G = 0; G < limit(); ++G) {
        plan.total += highestNumber(G) + 1;
        const QString name = m_site.names.groupName(m_site.link.DriveStatus.DriveFamily, G);
        GrpNameCheckListBox.push_back({name, true});
    }
    // A drive with one group alone is taken to have no group rows.
    const int groupRows = groupCount() == 1 && !reservedIncluded() ? 0 : limit();
    plan.rows = plan.total + 1 + groupRows;
    return !GrpNameCheckListBox.empty();
}

void ParameterReader::showTree() {
    m_screen.driveRoot = {treeRootText(TableSide::Drive, true, m_screen.ModelVrLabel),
                          treeChildren(family(), {}), true};
    m_screen.active = ParameterTab::Drive;
    m_screen.driveSubShown = false;
    Q_EMIT screenChanged();
}

void ParameterReader::showProgress(const Plan& plan) {
    m_progress.glyph = ProgressGlyph::ReadDrive;
    m_progress.show(
        QStringLiteral("Reading parameters from ") % m_screen.ModelVrLabel % QStringLiteral(" ..."),
        plan.total - groupCount(), plan.total, ReadProgressWidth);
}

// ---- Sending half ----

std::optional<LinkRequest> ParameterReader::nextRequest() {
    passUncheckedGroups();
    if (ReadNumber == 0 && family() != Family::Rowan) writeGroupRow();
    if (ReadGroup + 1 == static_cast<int>(GrpNameCheckListBox.size()) && !groupChecked(ReadGroup)) {
        endAtUncheckedGroup();
        return std::nullopt;
    }
    ReadPending = 1;
    m_site.link.DriveStatus.ExceptionTextDone = 0;
    fillAddressCells(m_table.grid, ReadRow, ReadGroup, ReadNumber);
    return LinkRequest{ParameterTask, readCommand(), Awaits::ReadDone};
}

bool ParameterReader::groupChecked(int G) const {
    const auto index = static_cast<size_t>(G);
    return index >= GrpNameCheckListBox.size() || GrpNameCheckListBox[index].checked;
}

void ParameterReader::passUncheckedGroups() {
    if (groupChecked(ReadGroup)) return;
    while (!groupChecked(ReadGroup) && ReadGroup + 1 < static_cast<int>(GrpNameCheckListBox.size())) {
        m_progress.setPosition(m_progress.position + highestNumber(ReadGroup));
        ++ReadGroup;
    }
    ReadNumber = 0;
    if (ReadReservedWanted) fillReservedGroupRow(m_table.grid, ReadRow++);
}

void ParameterReader::writeGroupRow() {
    const QString name = m_site.names.groupName(m_site.link.DriveStatus.DriveFamily, ReadGroup);
    if (ReadGroup == groupCount()) {
        fillReservedGroupRow(m_table.grid, ReadRow);
    } else {
        fillGroupRow(m_table.grid, ReadRow, name);
    }
    m_screen.driveRoot.children += name;
    ++ReadRow;
    Q_EMIT screenChanged();
}

void ParameterReader::endAtUncheckedGroup() {
    if (family() != Family::Rowan) {
        m_table.grid.blank(column::PrNo, column::Dot, ReadRow - 1, ReadRow - 1);
        m_screen.driveRoot.children.removeLast();
        Q_EMIT screenChanged();
    }
    ReadPending = 0;
    endRead(ReadRow - 1);
    Q_EMIT ended(false);
}

QString ParameterReader::readCommand() const {
    return QStringLiteral("FF03") % addressText(ReadGroup, ReadNumber) % readTail(family());
}

// ---- Receiving half ----

void ParameterReader::takeReply() {
    ReadPending = 0;
    storeRow();
    stepOn();
    askWhenCancelled();
    if (!reading()) return;  // ended while the question stood
    if (ReadGroup != limit() && !m_progress.cancelMark) return;
    const bool complete = !m_progress.cancelMark;
    endRead(ReadRow);
    if (complete) DriveTableComplete = 1;
    Q_EMIT ended(complete);
}

void ParameterReader::storeRow() {
    const ParameterRecord record = recordOf(m_site.link.ParamRead);
    fillParameterRow(m_table.grid, ReadRow, family(), ReadGroup, ReadNumber, record);
    m_progress.parameterDone(QStringLiteral("Process Pr ") % m_table.grid.cell(column::PrNo, ReadRow) %
                             QStringLiteral(":  ") % record.ParaName);
    Q_EMIT rowFilled(ReadRow);
}

void ParameterReader::stepOn() {
    if (ReadGroup >= limit()) return;
    ++ReadRow;
    if (highestNumber(ReadGroup) > ReadNumber) {
        ++ReadNumber;
        // Kept: the bar steps only within groups.
        m_progress.setPosition(m_progress.position + 1);
        return;
    }
    ++ReadGroup;
    // Kept: the number of Rowan runs on into the next group, but not into the reserved one.
    if (family() != Family::Rowan || ReadGroup == groupCount()) ReadNumber = 0;
}

void ParameterReader::askWhenCancelled() {
    // Kept: the mark is looked at after a reply only; without one, Cancel does nothing.
    if (!m_progress.cancelMark) return;
    const bool terminate = m_site.voice.person.yes(QStringLiteral("Are you sure terminate ?"), Cofirm);
    if (!terminate && m_progress.shown) m_progress.showAgain();
}

// Kept: a refused or unusable reply ends no wait and is not asked for again. But nobody is locked in behind
// it.
void ParameterReader::tellNoAnswer() {
    m_progress.tellNoAnswer(m_site.noAnswerText(parameterNumberText(family(), ReadGroup, ReadNumber)));
}

// As Abort ends a read, but the link stays as it is.
void ParameterReader::stopWaiting() {
    if (!reading()) return;
    m_site.link.emptyQueues();
    stop();
}

void ParameterReader::endRead(int rows) {
    m_chain.stop();
    m_restWatch.stop();
    ReadReservedWanted = 0;
    m_progress.close();
    m_progress.ParaLabel.clear();
    m_progress.setPosition(0);
    m_table.grid.setRowCount(rows);
}

void ParameterReader::stop() {
    const bool wasReading = reading();
    m_chain.stop();
    m_restWatch.stop();
    ReadPending = 0;
    ReadReservedWanted = 0;
    m_progress.close();
    if (wasReading) Q_EMIT ended(false);
}

}  // namespace kelvane

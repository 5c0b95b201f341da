#include "shell/tool.h"

#include <array>

#include "localisation/startup_language.h"
#include "shell/monitor_section.h"
#include "shell/trend_section.h"

namespace kelvane {

namespace {

const QString ProjectFilter = QStringLiteral("Project File(*.prj)|*.prj");
const QString ErrorTitle = QStringLiteral("Error");

}  // namespace

Tool::Tool(const ToolSite& toolSite)
    : site(toolSite),
      voice{site.person, site.language.table},
      ports(PortDirectory::ofFile(site.folder.findData(QStringLiteral("serial_ports.txt")))),
      linkPort(ports, site.makePort, LinkPortAtCreation),
      setupPort(ports, site.makeSetupPort, SetupPortAtCreation),
      link({site.clock, site.wallClock, site.person, linkPort, site.language.table}, BrandVariantOfBuild),
      comSetup(link, setupPort, site.clock, voice),
      identification(link, groupNames, voice),
      presence(
          linkPort, [this](int number) { return ports.isPresent(number); },
          [this](const QString& text) { link.ShowHistoryMsg(text); }),
      watcher(presence),
      rules(link, voice),
      console({link, comSetup, site.clock, site.wallClock, voice, site.folder.path()}),
      parameters(link, site.clock, groupNames, voice,
                 {.programFolder = site.folder.path(), .wallClock = &site.wallClock}),
      pid({link, site.clock, site.person, site.language.table}),
      autoTuning({link, site.clock, site.person, site.language.table}),
      trend(
          {site.clock, site.wallClock, link, site.person, site.folder.file(QStringLiteral("trend journal"))}),
      monitor({site.clock, site.wallClock, link, site.person, site.language.table}),
      faults(site.person, [this] { return link.dateTimeText(); }),
      keypad(link, site.clock, site.person, site.language.table),
      quickSetup(link, voice),
      quickSetupFlow(quickSetup, link, site.clock, voice) {
    followIdentification(trend, identification);
    followIdentification(monitor, identification);
    trend.showFault = [this](const DriveStatusRecord& status) { faults.showFault(status); };
    connect(&identification, &DriveIdentification::familyKnown, &quickSetup, &QuickSetup::Initial);
    parameters.keypad.setComSetup = [this](const ComSetupChoice& choice) {
        return setComSetupForKeypad(choice);
    };
    connect(&comSetup, &ComSetup::goingOnLine, &keypad, &Keypad::showIdentification);
    connect(&rules, &WindowRules::stopKeypad, &keypad, &Keypad::rest);
    linkPort.onNotOpened = [this](const QString& reason) { link.ShowHistoryMsg(reason); };
    linkPort.onLost = [this](const QString& reason) {
        watcher.portLost(reason);
        console.listener.portLost(reason);
    };
    setupPort.onLost = [this](const QString& reason) { link.ShowHistoryMsg(reason); };
    linkPort.onRouted = [this](const PortTarget&) { followPort(); };
    connect(&link, &RequestScheduler::changed, this, &Tool::takeHeldComSetup);
    connect(&link, &RequestScheduler::initialRun, this, [this] { m_onLineSaid = false; });
    connect(&link, &RequestScheduler::statusDecoded, this, &Tool::sayOnLine);
    loadDefaultProject();
    followPort();
}

void Tool::followPort() { watcher.follow(linkPort.target().devicePath); }

// Once an identification, when its first poll has come.
void Tool::sayOnLine() {
    if (std::exchange(m_onLineSaid, true)) return;
    const QString drive = QStringList{link.Labels.DriveVrLabel, link.Labels.VersionVrLabel}.join(u' ');
    link.ShowHistoryMsg(drive.trimmed() % QStringLiteral(" on line"));
}

// Through the boxes, as a person would.
PortSettings Tool::setComSetupForKeypad(const ComSetupChoice& choice) {
    comSetup.ModeComboBoxChange(ComSetup::modeItems()[choice.mode == LinkMode::Rtu]);
    comSetup.BaudComboBoxChange(QString::number(choice.Baud));
    comSetup.DataBitsComboBoxChange(QString::number(choice.DataBits));
    comSetup.ParityComboBoxChange(parityLetter(choice.Parity));
    comSetup.StopBitsComboBoxChange(QString::number(choice.StopBits));
    return setupPort.settings();
}

// ---- Projects ----

void Tool::loadDefaultProject() {
    // Before the first exit it is the one that was installed.
    const FileContent file = readWhole(site.folder.findData(QStringLiteral("default.prj")));
    const QStringList lines = file.ok ? projectLines(file.bytes) : QStringList();
    defaults.LanguageIndex = site.language.LanguageIndex;
    const SectionRead read = readComSetupSection(lines, defaults.ComSetup);
    takeComSetup(defaults.ComSetup, read.taken);
    comSetup.copySettingsToLink();
    readTrendSection(lines, defaults.Trend);
    takeTrendSection(trend, defaults.Trend);
    readMonitorSection(lines, defaults.Monitor);
    takeMonitorSection(monitor, defaults.Monitor);
}

// The settings of an opened project take effect at the next Accept; a link that is on line goes on with the
// mode and the reply wait that it has.
void Tool::takeComSetupAtRest(const ComSetupSection& section, int taken) {
    m_held = {section, taken};
    takeHeldComSetup();
}

void Tool::takeHeldComSetup() {
    if (m_held.taken == 0 || link.Lamp.onLine()) return;
    const HeldComSetup held = std::exchange(m_held, {});
    takeComSetup(held.section, held.taken);
}

// Each value runs its box's change handler; a value that is not offered leaves the box as it was.
void Tool::takeComSetup(const ComSetupSection& section, int taken) {
    using Handler = void (ComSetup::*)(const QString&);
    const std::array<std::pair<Handler, QString>, 6> values{{
        {&ComSetup::ComPortComboBoxChange, section.ComPortComboBox},
        {&ComSetup::ModeComboBoxChange, section.ModeComboBox},
        {&ComSetup::BaudComboBoxChange, section.BaudComboBox},
        {&ComSetup::DataBitsComboBoxChange, section.DataBitsComboBox},
        {&ComSetup::ParityComboBoxChange,
         ComSetup::parityItems().value(parityItemIndex(section.ParityComboBox))},
        {&ComSetup::StopBitsComboBoxChange, section.StopBitsComboBox},
    }};
    for (size_t i = 0; i < values.size() && static_cast<int>(i) < taken; ++i)
        (comSetup.*values[i].first)(values[i].second);
}

ComSetupSection Tool::comSetupSection() const {
    if (m_held.taken > 0) return m_held.section;
    const ComSetup::Shown& boxes = comSetup.shown;
    return {boxes.ComPortComboBox,  boxes.ModeComboBox,   boxes.BaudComboBox,
            boxes.DataBitsComboBox, boxes.ParityComboBox, boxes.StopBitsComboBox};
}

FileResult Tool::SaveProject() {
    Q_EMIT projectWanted();
    defaults.Trend = trendSection(trend);
    defaults.Monitor = monitorSection(monitor);
    defaults.LanguageIndex = site.language.LanguageIndex;
    defaults.ComSetup = comSetupSection();
    return writeWhole(site.folder.file(QStringLiteral("default.prj")), defaultProjectBytes(defaults));
}

// A copy: named keeps whose values the last file held, which Quick Setup tells beside them.
NamedProject Tool::projectToSave() const {
    NamedProject project = named;
    project.LanguageIndex = site.language.LanguageIndex;
    project.ComSetup = comSetupSection();
    project.Monitor = monitorSection(monitor);
    project.MeterType = monitor.meterType.MeterType;
    project.ChComboBox = trendSection(trend).ChComboBox;
    project.ChannelWidth = channelWidths(trend);
    project.QuickSetup.DriveVrLabel = link.Labels.DriveVrLabel;
    project.QuickSetup.VersionVrLabel = link.Labels.VersionVrLabel;
    project.QuickSetup.HPVrLabel = link.Labels.HPVrLabel;
    project.QuickSetup.RatedVoltageVrLabel = link.Labels.RatedVoltageVrLabel;
    project.QuickSetup.RatedCurrentVrLabel = link.Labels.RatedCurrentVrLabel;
    for (int slot = 1; slot <= SlotCount; ++slot)
        project.QuickSetup.SlotFileValue[static_cast<size_t>(slot)] = quickSetup.controlText(slot);
    return project;
}

void Tool::SaveTransparentButtonClick() {
    Q_EMIT projectWanted();
    const QByteArray bytes = namedProjectBytes(projectToSave());
    const std::optional<QString> path = site.person.saveFile(ProjectFilter, QStringLiteral("prj"));
    if (!path) return;
    const FileResult written = writeWhole(*path, bytes);
    if (!written.ok) {
        site.person.tell(written.error, ErrorTitle, BoxIcon::Stop);
        return;
    }
    statusPanel0 = QStringLiteral("Save ") % *path;
    Q_EMIT panel0Changed();
}

void Tool::OpenSoftwareUserManual(int number) {
    if (!pdfViewerInstalled(viewer)) {
        site.person.tell(QStringLiteral("Please install the Adobe Acrobat first !!"),
                         QStringLiteral("Error"));
        return;
    }
    // Kept: a manual that is not there, or does not open, passes in silence.
    const QString path = site.folder.findData(manualFile(number));
    if (!path.isEmpty()) viewer.open(path);
}

void Tool::UserManualClick() {
    for (const QString& line : viewerLines(viewer)) link.ShowHistoryMsg(line);
}

void Tool::OpenTransparentButtonClick() {
    const std::optional<QString> path = site.person.openFile(ProjectFilter);
    if (!path) return;
    const FileContent file = readWhole(*path);
    if (!file.ok) {
        site.person.tell(file.error, ErrorTitle, BoxIcon::Stop);
        return;
    }
    named.ComSetup = comSetupSection();
    named.ChannelWidth = channelWidths(trend);
    named.Monitor = monitorSection(monitor);
    named.MeterType = monitor.meterType.MeterType;
    const NamedProjectRead read = readNamedProject(projectLines(file.bytes), named);
    takeComSetupAtRest(named.ComSetup, read.ComSetup.taken);
    if (read.QuickSetup.taken > 0) quickSetup.takeProject(named.QuickSetup.SlotFileValue);
    if (read.Monitor.taken > 0) takeMonitorSection(monitor, named.Monitor);
    monitor.meterType.MeterType = static_cast<quint8>(named.MeterType);
    if (read.Trend.taken > 0) takeTrendBoxes(trend, named.ChComboBox, named.ChannelWidth);
    if (read.Monitor.taken > 0) defaults.Monitor = named.Monitor;
    if (read.Trend.taken > 0) defaults.Trend.ChComboBox = named.ChComboBox;
    Q_EMIT projectOpened();
    if (!read.ok()) {
        site.person.tell(*path % QStringLiteral(": ") % read.error, ErrorTitle, BoxIcon::Stop);
        return;
    }
    statusPanel0 = QStringLiteral("Open ") % *path;
    link.ShowHistoryMsg(statusPanel0);
    Q_EMIT panel0Changed();
}

void Tool::FormClose() {
    SaveProject();
    const FileResult commandList = console.FormClose();
    if (!commandList.ok) link.ShowHistoryMsg(commandList.error);
    keypad.rest();
    comSetup.FormClose();
    link.rest();
    linkPort.close();
    link.setLamp(LampState::OffLine);
    // With the timers off nobody else would close these, and the program would stay for them.
    link.Notice.TCEmessageFormShown = link.Notice.TInitialFormShown = false;
    link.notifyChanged();
}

// ---- Practice drive ----

bool Tool::practiceChosen() const { return linkPort.target().kind == PortTarget::Kind::Practice; }

Family Tool::practiceFamily() const { return linkPort.target().family; }

void Tool::choosePracticeFamily(Family family) {
    if (!mayChoosePractice()) return;
    linkPort.close();
    setupPort.close();
    ports.choosePractice(linkPort.settings().ComNumber, family);
    Q_EMIT practiceChanged();
}

void Tool::raiseFault() {
    if (mayRaiseFault()) tripPracticeDrive(practiceFamily());
}

// ---- Language ----

bool Tool::chooseLanguage(quint8 index) {
    const bool loaded = kelvane::chooseLanguage(
        site.language, index, site.folder.findData(QStringLiteral("Language file")), site.person);
    if (!loaded) return false;
    identification.refreshItemNames();
    console.languageChanged();
    Q_EMIT languageChanged();
    return true;
}

}  // namespace kelvane

// kelvane-table-bench: what the whole program, with its windows, does with a table on a real line. Reads a
// table by the window's own button over kelvane-drive, against the bare scheduler on the same line in the
// same run; and reads the table of every family over a line that loses, damages and delays replies, row by
// row against what the drive holds; and identifies every family with one bad reply at every place. Ends with
// 1 when a bound is missed.
#include <QAbstractButton>
#include <QApplication>
#include <QCommandLineParser>
#include <QMessageBox>
#include <QTemporaryDir>
#include <cstdio>
#include <span>

#include "drive/parameter_data.h"
#include "link/number_text.h"
#include "link_bench_tool.h"
#include "shell/windows.h"

namespace {

using namespace kelvane;
using namespace kelvane::bench;

constexpr double ReadBound = 1.03;
constexpr double PollingPercent = 2;
constexpr double OffLinePercent = 0.1;
constexpr double RecordingPercent = 3;
constexpr int OnLineLimitMs = 60000;
constexpr int ReadLimitMs = 120000;
constexpr int LookEveryMs = 50;
int missed = 0;

// Everything that runs in the tool, on the device of one port.
class WholeProgram {
   public:
    WholeProgram(const LineCase& line, const QString& device)
        : m_folder(ProgramFolder::decide(m_dir.path(), m_dir.path())),
          tool({m_clock, m_wall, m_person, m_folder, m_language,
                [device](const PortTarget&) { return std::make_unique<QtComPort>(device); }}),
          mainForm(tool),
          windows(tool, mainForm, nullptr, m_looks) {
        const PortSettings settings = line.settings();
        ComSetup& setup = tool.comSetup;
        setup.ComPortComboBoxChange(QStringLiteral("4"));
        setup.ModeComboBoxChange(line.mode == LinkMode::Rtu ? QStringLiteral("RTU")
                                                            : QStringLiteral("ASCII"));
        setup.BaudComboBoxChange(QString::number(settings.Baud));
        setup.DataBitsComboBoxChange(QString::number(settings.DataBits));
        setup.ParityComboBoxChange(parityLetter(settings.Parity));
        setup.StopBitsComboBoxChange(QString::number(settings.StopBits));
        setup.copySettingsToLink();
        mainForm.show();
        QObject::connect(&tool.link, &RequestScheduler::cycleEnded, &tool.link, [this] { ++exchanges; });
        QObject::connect(&tool.link, &RequestScheduler::historyLine, &tool.link,
                         [this](const QString& told) { history += told; });
    }

    bool goOnLine() {
        tool.link.Initial();
        tool.link.TxTimer.setEnabled(true);
        return runUntil([this] { return tool.link.DriveStatus.DriveReady == 1; }, OnLineLimitMs, LookEveryMs);
    }
    // A reply that is lost in identification shifts the later ones (the queues are no pairs), and the table
    // is then not the drive's: here as at the machine, one goes on line again.
    bool goOnLineWithoutFault() {
        for (int attempt = 0; attempt < 20; ++attempt) {
            history.clear();
            if (!goOnLine()) return false;
            if (history.isEmpty()) return true;
            tool.link.Initial();
            runFor(1000);  // what is under way comes to its end
        }
        return false;
    }
    // Microseconds from the click to the complete table; 0 when it does not come.
    double readTable() {
        windows.openWindow(OwnerParameter);
        runFor(300);  // shown, and the last poll is over
        exchanges = 0;
        double endedAt = 0;
        const auto ended =
            QObject::connect(&tool.parameters, &ParameterSession::screenChanged, &tool.link, [&] {
                if (tool.parameters.reader.DriveTableComplete == 1) endedAt = nowUs();
            });
        const double before = nowUs();
        windows.parameterForm.findChild<QAbstractButton*>(QStringLiteral("ReadDriveTransparentButton"))
            ->click();
        const bool read =
            runUntil([this] { return tool.parameters.reader.DriveTableComplete == 1; }, ReadLimitMs, 1);
        if (endedAt == 0) endedAt = nowUs();
        QObject::disconnect(ended);
        return read ? endedAt - before : 0;
    }

   private:
    QTemporaryDir m_dir;
    QtTickClock m_clock;
    SystemWallClock m_wall;
    PatientOperator m_person;
    ProgramFolder m_folder;
    Language m_language{LangTable::builtInEnglish(), 4};
    LooksInMemory m_looks;

   public:
    Tool tool;
    TMainForm mainForm;
    Windows windows;
    int exchanges = 0;
    QStringList history;
};

QStringList familyOption(Family family) {
    return {QStringLiteral("--family"), QString::fromLatin1(familyName(family)).toLower()};
}

void measureReading(const LineCase& line, int runs) {
    double scheduler = 0;
    double program = 0;
    int parameters = 0;
    for (int run = 0; run < runs; ++run) {
        const DriveProcess drive(line);
        WholeProgram whole(line, drive.device());
        if (!whole.goOnLine())
            return void(missed += std::printf("%s no link\n", qPrintable(line.name())) > 0);
        const double us = whole.readTable();
        parameters = whole.exchanges;
        whole.tool.link.Initial();
        const SideResult bare = ToolSide(line, drive.device()).read(parametersToRead(parameters));
        if (us <= 0 || bare.failures > 0) ++missed;
        const double each = us / parameters;
        program = run == 0 ? each : std::min(program, each);
        scheduler = run == 0 ? bare.usPerExchange : std::min(scheduler, bare.usPerExchange);
    }
    const double ratio = program / scheduler;
    if (ratio > ReadBound) ++missed;
    std::printf("%s %6d parameters  scheduler %8.3f ms  program %8.3f ms  ratio %.4f  %s\n",
                qPrintable(line.name()), parameters, scheduler / 1000, program / 1000, ratio,
                ratio <= ReadBound ? "within" : "MISSED");
    std::fflush(stdout);
}

QString valueOf(const drive::ParamRow& row, int value) {
    return InsertDecimalPoint(QString::number(value), row.dot);
}

// Rows that are not what the drive holds, missing and double ones included.
int wrongRows(const StringGrid& grid, Family family) {
    int wrong = 0;
    int row = 1;
    const auto& groups = drive::familyData(family).groups;
    for (size_t G = 0; G + 1 < groups.size(); ++G) {  // the last one is reserved
        if (family != Family::Rowan) wrong += !isGroupRow(grid, row++);
        for (size_t N = 0; N < groups[G].rows.size(); ++N, ++row) {
            const drive::ParamRow& held = groups[G].rows[N];
            bool right = grid.cell(column::Address, row) == addressText(int(G), int(N)) &&
                         grid.cell(column::Data, row) == valueOf(held, held.value) &&
                         grid.cell(column::Min, row) == valueOf(held, held.min) &&
                         grid.cell(column::Max, row) == valueOf(held, held.max);
            if (family != Family::Hazel)
                right = right && grid.cell(column::Default, row) == valueOf(held, held.defaultValue) &&
                        grid.cell(column::Description, row).trimmed().toStdString() == held.name;
            wrong += !right;
        }
    }
    return wrong + std::abs(grid.RowCount() - row);
}

void readOverABadLine(Family family, LinkMode mode, int seed) {
    const LineCase line{mode, 38400};
    const DriveProcess drive(
        line, QStringLiteral("fifo"),
        familyOption(family) + QStringList{QStringLiteral("--lose"), QStringLiteral("1"),
                                           QStringLiteral("--corrupt"), QStringLiteral("1"),
                                           QStringLiteral("--late"), QStringLiteral("1"),
                                           QStringLiteral("--seed"), QString::number(seed)});
    WholeProgram whole(line, drive.device());
    const bool on = whole.goOnLineWithoutFault();
    const double us = on ? whole.readTable() : 0;
    const StringGrid& grid = whole.tool.parameters.DriveAdvStringGrid;
    const int wrong = us > 0 ? wrongRows(grid, family) : -1;
    if (wrong != 0) ++missed;
    int parameters = 0;
    for (int row = 1; row < grid.RowCount(); ++row) parameters += !isGroupRow(grid, row);
    std::printf("%-8s %-5s  %4d parameters, %3d exchanges more, %6.1f s, %s%d rows wrong\n",
                familyName(family), mode == LinkMode::Rtu ? "RTU" : "ASCII", parameters,
                whole.exchanges - parameters, us / 1e6, on ? "" : "NO LINK, ", wrong);
    std::fflush(stdout);
}

// Share of a core while the main window stands there on line and polls, and while it is off line.
void measureResting(LinkMode mode, const QString& flow) {
    const LineCase line{mode, 9600};
    const DriveProcess drive(line, flow);
    WholeProgram whole(line, drive.device());
    const auto percentOver = [](int ms) {
        const double cpuBefore = cpuUs();
        const double before = nowUs();
        runFor(ms);
        return (cpuUs() - cpuBefore) / (nowUs() - before) * 100;
    };
    if (!whole.goOnLine()) ++missed;
    runFor(1000);
    const double polling = percentOver(10000);
    whole.tool.link.Initial();
    runFor(500);
    const double offLine = percentOver(5000);
    if (polling > PollingPercent || offLine > OffLinePercent) ++missed;
    std::printf("%s %-6s  on line %.3f %% (bound %.0f), off line %.3f %% (bound %.1f)\n",
                qPrintable(line.name()), qPrintable(flow), polling, PollingPercent, offLine, OffLinePercent);
    std::fflush(stdout);
}

// Median of the time between two records, in ms, and how far it is from what it should be.
double medianInterval(std::span<const TrendRecord> records) {
    std::vector<double> intervals;
    for (size_t i = 1; i < records.size(); ++i)
        intervals.push_back((records[i].Time - records[i - 1].Time) * 86400000);
    std::sort(intervals.begin(), intervals.end());
    return intervals.empty() ? 0 : intervals[intervals.size() / 2];
}

// Eight channels of a running motor, with Trend and keypad open; then the same under a modal box.
void measureRecording(LinkMode mode, const QString& flow) {
    const LineCase line{mode, 9600};
    const DriveProcess drive(line, flow);
    WholeProgram whole(line, drive.device());
    if (!whole.goOnLine()) ++missed;
    whole.windows.openWindow(OwnerTrend);
    TrendSession& trend = whole.tool.trend;
    for (int c = 1; c <= TrendSession::Channels; ++c) {
        trend.ChVrPowerButtonClick(c, true);
        trend.ChComboBoxCloseUp(c, c - 1);
    }
    trend.StartVrPowerButtonClick(true);
    whole.windows.openWindow(OwnerKeypad);
    whole.tool.link.request(10, QStringLiteral("FF0620011388"));
    whole.tool.link.request(2, QStringLiteral("FF0620000002"));
    runFor(3000);
    const auto first = static_cast<size_t>(trend.AbTrend1.TotalRecords());
    const double cpuBefore = cpuUs();
    const double before = nowUs();
    runFor(20000);
    const double percent = (cpuUs() - cpuBefore) / (nowUs() - before) * 100;
    const double median = medianInterval(trend.AbTrend1.data.records.all().subspan(first));
    const auto boxed = static_cast<size_t>(trend.AbTrend1.TotalRecords());
    QMessageBox box(QMessageBox::Information, QStringLiteral("Box"), QStringLiteral("A box that stands."));
    box.open();
    runFor(5000);
    const double underBox = medianInterval(trend.AbTrend1.data.records.all().subspan(boxed));
    box.close();
    const bool ok =
        percent <= RecordingPercent && std::abs(median - 100) <= 2 && std::abs(underBox - 100) <= 2;
    if (!ok) ++missed;
    std::printf(
        "%s %-6s  %.2f %% of a core (bound %.0f), a record every %.2f ms, under a box %.2f ms (100 within 2) "
        " %s\n",
        qPrintable(line.name()), qPrintable(flow), percent, RecordingPercent, median, underBox,
        ok ? "within" : "MISSED");
    std::fflush(stdout);
}

// Identification with one reply that is lost, damaged or late at every place of it: never stuck.
void identifyWithOneFaultEverywhere(Family family, LinkMode mode) {
    const LineCase line{mode, 38400};
    int replies = 0;
    int runs = 0;
    int stuck = 0;
    double longest = 0;
    const auto identify = [&](const QStringList& fault) {
        const DriveProcess drive(line, QStringLiteral("fifo"), familyOption(family) + fault);
        WholeProgram whole(line, drive.device());
        const double before = nowUs();
        const bool on =
            whole.goOnLine() && whole.tool.link.Lamp.onLine() && !whole.tool.link.Notice.TInitialFormShown;
        longest = std::max(longest, nowUs() - before);
        replies = whole.exchanges;
        stuck += !on;
        ++runs;
    };
    identify({});
    const int places = replies;
    for (const char* fault : {"lose", "corrupt", "late"})
        for (int k = 1; k <= places; ++k)
            identify({QStringLiteral("--fail"), QStringLiteral("%1:%2").arg(QLatin1String(fault)).arg(k)});
    if (stuck > 0) ++missed;
    std::printf("%-8s %-5s  %3d places, %3d identifications, %d stuck, longest %.1f s\n", familyName(family),
                mode == LinkMode::Rtu ? "RTU" : "ASCII", places, runs, stuck, longest / 1e6);
    std::fflush(stdout);
}

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOption({QStringLiteral("tables"),
                      QStringLiteral("Which tables (reading,rest,recording,faults,identify)."),
                      QStringLiteral("names"), QStringLiteral("reading,rest,recording,faults,identify")});
    parser.addOption(
        {QStringLiteral("family"), QStringLiteral("Only this family."), QStringLiteral("name"), {}});
    parser.addOption({QStringLiteral("runs"), QStringLiteral("Runs a row of reading; the best counts (1)."),
                      QStringLiteral("number"), QStringLiteral("1")});
    parser.addOption({QStringLiteral("seed"), QStringLiteral("Seed of the faults (1)."),
                      QStringLiteral("number"), QStringLiteral("1")});
    parser.process(app);
    const QStringList tables = parser.value(QStringLiteral("tables")).split(QLatin1Char(','));
    if (tables.contains(QStringLiteral("reading"))) {
        std::printf("Reading a table in the whole program, time a parameter (bound %.2f).\n", ReadBound);
        for (const LinkMode mode : {LinkMode::Rtu, LinkMode::Ascii})
            for (const int Baud : {9600, 115200})
                measureReading({mode, Baud}, std::max(1, parser.value(QStringLiteral("runs")).toInt()));
    }
    if (tables.contains(QStringLiteral("rest"))) {
        std::printf("\nProcessor time of the whole program with its main window, share of a core.\n");
        for (const char* flow : {"single", "fifo"})
            for (const LinkMode mode : {LinkMode::Rtu, LinkMode::Ascii})
                measureResting(mode, QLatin1String(flow));
    }
    if (tables.contains(QStringLiteral("recording"))) {
        std::printf("\nA trend of eight channels being recorded, keypad open.\n");
        for (const char* flow : {"single", "fifo"})
            for (const LinkMode mode : {LinkMode::Rtu, LinkMode::Ascii})
                measureRecording(mode, QLatin1String(flow));
    }
    const QString only = parser.value(QStringLiteral("family"));
    std::vector<Family> families;
    for (const Family family : AllFamilies)
        if (only.isEmpty() || only.compare(QLatin1String(familyName(family)), Qt::CaseInsensitive) == 0)
            families.push_back(family);
    if (tables.contains(QStringLiteral("faults"))) {
        std::printf("\nOne reply in a hundred lost, one with a wrong check, one late.\n");
        const int seed = parser.value(QStringLiteral("seed")).toInt();
        for (const Family family : families)
            for (const LinkMode mode : {LinkMode::Rtu, LinkMode::Ascii}) readOverABadLine(family, mode, seed);
    }
    if (tables.contains(QStringLiteral("identify"))) {
        std::printf("\nIdentification with one bad reply at every place.\n");
        for (const Family family : families)
            for (const LinkMode mode : {LinkMode::Rtu, LinkMode::Ascii})
                identifyWithOneFaultEverywhere(family, mode);
    }
    if (missed > 0) std::printf("\n%d bounds missed.\n", missed);
    return missed > 0 ? 1 : 0;
}

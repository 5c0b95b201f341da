// A person who does anything, over drives that do anything: real windows and boxes, refusals, losses, noise,
// a pulled adapter. From wherever a few hundred steps have led, the main window can be reached again by what
// is on the screen. KELVANE_WALK_STEPS and KELVANE_WALK_SEED choose another walk; KELVANE_WALK_TRACE prints
// each step as it is taken.
#include <gtest/gtest.h>

#include <QEventLoop>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <QWindow>
#include <utility>

#include "base/manual_tick_clock.h"
#include "bench/credit_check.h"
#include "bench/hostile_line.h"
#include "shell/practice_drives.h"
#include "shell/windows.h"
#include "walk/walker.h"

namespace kelvane {
namespace {

constexpr int StepsOut = 250;   // between two returns
constexpr int StepsHome = 500;  // a return that takes more is none

int setting(const char* name, int otherwise) {
    bool set = false;
    const int value = qEnvironmentVariableIntValue(name, &set);
    return set ? value : otherwise;
}

struct WalkBench {
    QTemporaryDir dir;
    ManualTickClock clock;
    FixedWallClock wall{QDateTime(QDate(2026, 3, 2), QTime(9, 8, 7))};
    ProgramFolder folder = ProgramFolder::decide(dir.path(), dir.path());
    Language language{.table = LangTable::builtInEnglish()};
    ShellOperator person{language.table};
    PracticeDrives practice{clock};
    LooksInMemory looks;
    Tool tool{{clock, wall, person, folder, language, [this](const PortTarget& target) {
                   std::unique_ptr<TApdComPort> port;
                   if (target.kind == PortTarget::Kind::Practice) port = practice.makePort(target.family);
                   return port;
               }}};
    TMainForm mainForm{tool};
    Windows windows{tool, mainForm, &person, looks};
    CreditCheck credits{tool.link, [this] { return &practice.driveOf(tool.practiceFamily()); }};

    WalkBench() {
        language.LanguageIndex = 4;
        person.lastFolder = dir.path();
        mainForm.show();
        usualSettings();
    }
    void usualSettings() {
        if (tool.link.Lamp.onLine()) return;
        tool.comSetup.ComPortComboBoxChange("20");
        tool.comSetup.ModeComboBoxChange("ASCII");
        tool.comSetup.BaudComboBoxChange("9600");
        tool.comSetup.copySettingsToLink();
    }
};

// The line changes its mind now and then: mostly good, at times bad, seldom dead.
struct Weather {
    WalkBench& bench;
    walk::Walker& walker;

    void change() {
        drive::LineModel& line = bench.practice.lineOf(bench.tool.practiceFamily());
        line.setUnplugged(walker.chance(4));
        line.faults().clear();
        const auto harms = plainHarms() + lateReplies() + brokenReplies();
        const int kinds = walker.roll(4);
        for (int i = 0; i < kinds; ++i) {
            const Harm& harm = harms[size_t(walker.roll(int(harms.size())))];
            harm.setOn(line.options());
            line.faults().setChance(harm.fault, walker.roll(3) ? 2 + walker.roll(10) : 60);
        }
        if (walker.chance(6)) line.faults().setChance(drive::LineFault::Silent, 100);
        bench.practice.driveOf(bench.tool.practiceFamily()).options().tellsTexts = !walker.chance(20);
    }
};

class RandomWalk : public QObject {
   public:
    RandomWalk(WalkBench& bench, uint32_t seed, int steps)
        : m_bench(bench), m_walker(bench.mainForm, seed), m_steps(steps) {
        m_walker.advance = [this](int ms) { m_bench.clock.advance(ms); };
        m_walker.stays = {"FileExitItem", "ExitTransparentButton"};
        // The folders of this machine are no part of a walk that is the same everywhere.
        m_walker.likes = {{"LsDirTree", 0},
                          {"LsFilelistView", 0},
                          {"TestButton", 6},
                          {"OKBitBtn", 6},
                          {"ReadDriveTransparentButton", 4},
                          {"WriteCheckTransparentButton", 4},
                          {"WriteSelect", 3},
                          {"Yes", 2},
                          {"Retry", 1},
                          {"ModeComboBox", 0.02},
                          {"BaudComboBox", 0.02},
                          {"ComPortComboBox", 0.02},
                          {"DataBitsComboBox", 0.02},
                          {"ParityComboBox", 0.02},
                          {"StopBitsComboBox", 0.02},
                          {"AutoDetectRadioButton", 0.1}};
    }
    void run() {
        setOut();
        QTimer::singleShot(0, this, [this] { step(); });
        m_loop.exec();
    }
    const walk::Walker& walker() const { return m_walker; }
    int returns() const { return m_returns; }

   private:
    // The next step is due before this one acts, since this one may open a box and wait in it. What waits in
    // the event loop comes first, so that it does not matter which of the two is faster.
    void step() {
        if (m_ended) return;
        QTimer::singleShot(0, this, [this] { step(); });
        const int level = QThread::currentThread()->loopLevel();
        if (m_lettingGo == level) return;
        const int below = std::exchange(m_lettingGo, level);
        for (int turn = 0; turn < 3; ++turn) QCoreApplication::processEvents();
        m_lettingGo = below;
        if (!m_ended) decide();
    }
    void decide() {
        if (m_homeward && m_walker.isHome()) {
            m_homeward = 0;
            ++m_returns;
            if (m_taken >= m_steps) return end();
            setOut();
        }
        const bool onLine = m_bench.tool.link.Lamp.onLine();
        for (const char* way : {"ComSetup", "ComSetupTransparentButton"})
            m_walker.likes[way] = onLine ? 0.2 : 30;
        if (!m_homeward && m_taken >= (m_returns + 1) * StepsOut) m_homeward = 1;
        if (m_homeward && ++m_homeward > StepsHome) return stuck();
        if (m_walker.chance(1.5)) Weather{m_bench, m_walker}.change();
        if (!m_homeward) ++m_taken;
        m_walker.step(m_homeward != 0);
    }
    // Each time a person wants to work in another window, with any drive.
    void setOut() {
        m_bench.usualSettings();
        if (!m_bench.tool.link.Lamp.onLine())
            m_bench.tool.choosePracticeFamily(
                AllFamilies[size_t(m_walker.roll(int(std::size(AllFamilies))))]);
        const auto entries = windowEntries();
        for (size_t i = 0; i < entries.size(); ++i)
            for (const char* way : {entries[i]->entry.button, entries[i]->entry.menuItem})
                if (way) m_walker.likes[way] = i == size_t(m_returns) % entries.size() ? 30 : 0.3;
    }
    void stuck() {
        ADD_FAILURE() << "No way home after step " << m_taken << ". On the screen:\n"
                      << qPrintable(m_walker.screen()) << "\nThe last steps:\n"
                      << qPrintable(m_walker.log.join(QLatin1Char('\n')));
        end();
        QCoreApplication::exit();  // also out of the boxes; no later walk of this run can begin
    }
    void end() {
        m_ended = true;
        m_loop.quit();
    }

    WalkBench& m_bench;
    walk::Walker m_walker;
    QEventLoop m_loop;
    int m_steps;
    int m_taken = 0;
    int m_returns = 0;
    int m_homeward = 0;
    int m_lettingGo = 0;  // level of the loop whose events are let through
    bool m_ended = false;
};

// Two windows that open over each other in turn: none may be found below itself.
TEST(WindowOrder, IsNoCircle) {
    WalkBench bench;
    const QList<QWidget*> windows{&bench.windows.comSetupForm, &bench.windows.parameterForm,
                                  &bench.windows.aboutForm};
    for (QWidget* below : windows)
        for (QWidget* above : windows) {
            if (above == below) continue;
            below->show();
            below->activateWindow();
            above->show();
            above->activateWindow();
            below->hide();
            below->show();
            for (QWidget* window : windows) {
                int depth = 0;
                for (QWindow* over = window->windowHandle(); over && depth < 100;
                     over = over->transientParent())
                    ++depth;
                ASSERT_LT(depth, 20) << window->objectName().toStdString();
            }
            below->hide();
            above->hide();
        }
}

// The retry notice goes from window to window and may be the one that a person last clicked.
TEST(WindowOrder, NothingBelongsOverTheRetryNotice) {
    WalkBench bench;
    QWidget& window = bench.windows.aboutForm;
    TCEmessageForm& notice = bench.windows.ceMessageForm;
    notice.showOver(nullptr);
    notice.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&notice));
    bench.windows.showModal(window);
    for (const QWindow* over = window.windowHandle(); over; over = over->transientParent())
        ASSERT_NE(over, notice.windowHandle()) << "the notice over this window would stop the whole tool";
    notice.hide();
    notice.showOver(&window);
    EXPECT_TRUE(notice.isVisible());
}

class RandomWalks : public testing::TestWithParam<int> {};

TEST_P(RandomWalks, AlwaysFindBackToTheMainWindow) {
    const int steps = setting("KELVANE_WALK_STEPS", 1000);
    WalkBench bench;
    RandomWalk walk(bench, uint32_t(GetParam()), steps);
    walk.run();
    EXPECT_GE(walk.returns(), steps / StepsOut);
    EXPECT_EQ(bench.credits.miscredited.join('\n').toStdString(), "");
    const QMap<QString, int>& visits = walk.walker().visits;
    for (const char* window : {"TMainForm", "TComSetupForm", "TParameterForm"})
        EXPECT_GT(visits.value(window), 0) << window;
    for (auto visit = visits.begin(); visit != visits.end(); ++visit)
        RecordProperty(visit.key().toStdString(), visit.value());
}

std::vector<int> chosenSeeds() {
    if (const int seed = setting("KELVANE_WALK_SEED", 0)) return {seed};
    return {1, 2, 3, 4};
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomWalks, testing::ValuesIn(chosenSeeds()));

}  // namespace
}  // namespace kelvane

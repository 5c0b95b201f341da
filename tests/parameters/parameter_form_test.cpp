// The Parameter window by its object names, over a practice drive on a hand-driven clock.
#include "parameters/parameter_form.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QListView>
#include <QMenu>
#include <QMimeData>
#include <QDropEvent>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>

#include "base/manual_tick_clock.h"
#include "bench/scripted_operator.h"
#include "catalogue/identification.h"
#include "drive/practice_port.h"
#include "parameters/folder_browser_form.h"
#include "parameters/parameter_pages_form.h"
#include "parameters/table_text_file.h"
#include "sample_table.h"
#include "ui/display_label.h"
#include "ui/find_bar.h"
#include "ui/lamp.h"
#include "ui/path_label.h"

namespace kelvane {
namespace {

// On line in the Parameter window with a practice drive, as the shell leaves it.
class ParameterWindow : public testing::Test {
   protected:
    explicit ParameterWindow(Family family = Family::Larch)
        : station(clock, drive::familyData(family), line()), link({clock, wall, person, station.port, lang}) {
        link.Initial();
        link.emptyQueues();
        link.BaudTimeoutTicks = link.ReplyTimeoutTicks = 5;
        link.ComMode = 1;
        station.port.setSettings(line().wire);
        link.ActiveFunction = OwnerParameter;
        link.fixedParaName = fixedParaName;
        beOnLine(family);
        form.choices.chooseFrom = [this](const QString& title, const QStringList& items, int selected,
                                         const TableChoices::ThenIndex& then) {
            asked << title << items << QString::number(selected);
            then(chosen);
        };
        form.choices.chooseFormat = [this](const TableChoices::ThenKind& then) { then(kind); };
        form.choices.chooseCompareKind = [this](const QStringList& items, const TableChoices::ThenIndex& then) {
            asked << items;
            then(chosen);
        };
        session.opened();
        form.show();
        QApplication::processEvents();
    }
    static drive::LineOptions line() {
        drive::LineOptions options{.mode = drive::LineMode::Rtu};
        options.wire = {.Baud = 38400, .DataBits = 8};
        return options;
    }
    void beOnLine(Family family) {
        link.Lamp.ComStatusAbLED = QStringLiteral("On Line");
        link.Labels = {QString::fromLatin1(familyName(family)), "2.05", "150A", "460V", "75 ( 100 )"};
        DriveStatusRecord& status = link.DriveStatus;
        status.DriveReady = 1;
        status.DriveFamily = static_cast<quint8>(family);
        const int groups = station.drive.parameters().groupCount();
        status.GroupCount = static_cast<quint8>(groups);
        for (int G = 0; G <= groups; ++G) {
            status.GroupParamCount[size_t(G)] = station.drive.parameters().highestNumber(G).value_or(0);
            names.storeReportedName(status.DriveFamily, G, QStringLiteral("Group%1          ").arg(G));
        }
        link.notifyChanged();
    }
    void readTable() {
        trigger("ReadfromDrive");
        clock.advanceUntil([&] { return !session.progress.shown; }, 3600 * 1000);
        ASSERT_EQ(session.reader.DriveTableComplete, 1);
    }
    // The sample table as the table from file.
    void loadSample() {
        ParameterTable table;
        test::fillSample(table);
        const QString path = folder.filePath("t.txt");
        writeWhole(path, writeTableText(table, false, TextFormat::Txt));
        ASSERT_TRUE(form.loader.load(path));
    }
    template <typename T>
    T* named(const char* name) {
        T* found = form.findChild<T*>(QLatin1String(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    void trigger(const char* name) { named<QAction>(name)->trigger(); }
    StringGridView* view(const char* name) { return named<StringGridView>(name); }
    QTreeWidgetItem* node(int root, int child) {
        return named<QTreeWidget>("ParaTreeView")->topLevelItem(root)->child(child);
    }
    void select(int root, int child) { named<QTreeWidget>("ParaTreeView")->setCurrentItem(node(root, child)); }
    QString panel(int index) { return named<QLabel>(index ? "StatusLinePanel1" : "StatusLinePanel0")->text(); }

    QTemporaryDir folder;
    ManualTickClock clock;
    FixedWallClock wall{QDateTime(QDate(2026, 3, 2), QTime(9, 8, 7))};
    ScriptedOperator person;
    LangTable lang = LangTable::builtInEnglish();
    drive::PracticeStation station;
    RequestScheduler link;
    GroupNameTable names;
    ParameterSession session{link, clock, names};
    LooksInMemory looks;
    TParameterForm form{session, {person, clock, wall, folder.path(), looks}};
    QStringList asked;
    std::optional<int> chosen = 0;
    std::optional<TableFileKind> kind = TableFileKind::Text;
};

TEST_F(ParameterWindow, Shots) {
    readTable();
    form.resize(1280, 800);
    QApplication::processEvents();
    form.grab().save("/tmp/kv/pf-shots/drive.png");
    select(0, 2);
    QApplication::processEvents();
    form.grab().save("/tmp/kv/pf-shots/sub.png");
    loadSample();
    QApplication::processEvents();
    form.grab().save("/tmp/kv/pf-shots/file.png");
    trigger("CompareParameter");
    QApplication::processEvents();
    form.grab().save("/tmp/kv/pf-shots/compare.png");
}

}  // namespace
}  // namespace kelvane

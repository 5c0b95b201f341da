// A program that is killed at any moment of a save leaves the old file or the new one, never a torn one.
#include <gtest/gtest.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QTemporaryDir>
#include <csignal>

#include "base/whole_file.h"
#include "parameters/files/sheet_transfer.h"
#include "parameters/files/table_text_file.h"
#include "parameters/sample_table.h"

namespace kelvane {
namespace {

constexpr int Tries = 100;  // of each kind of file
constexpr int FirstKillUs = 50;
constexpr int KillStepUs = 61;

void fillLong(ParameterTable& table, quint16 ParaData) {
    constexpr int HighestNumber = 250;
    test::fillSample(table);
    table.identity.groupParamCount[1] = HighestNumber;
    for (int N = 0; N <= HighestNumber; ++N)
        fillParameterRow(table.grid, 5 + N, Family::Larch, 1, N,
                         {ParaData, 40000, 0, test::TwoPlaces, 6000, "Max. Output Freq", "Hz  "});
}

FileResult save(TableFileKind kind, const ParameterTable& table, const QString& path) {
    if (kind == TableFileKind::Text) return writeWhole(path, writeTableText(table, false, TextFormat::Txt));
    return saveTableSheets(*builtInSpreadsheet().create(), path, table, false, {});
}

// Another process that saves the two tables in turn until its alarm ends it.
void saveUntilKilled(TableFileKind kind, const ParameterTable& one, const ParameterTable& other,
                     const QString& path, int afterUs) {
    const pid_t saver = fork();
    ASSERT_GE(saver, 0);
    if (saver == 0) {
        itimerval alarm{};
        alarm.it_value.tv_usec = afterUs;
        setitimer(ITIMER_REAL, &alarm, nullptr);
        for (;;) {
            save(kind, one, path);
            save(kind, other, path);
        }
    }
    int status = 0;
    ASSERT_EQ(waitpid(saver, &status, 0), saver);
    ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGALRM) << status;
}

class KilledSave : public testing::TestWithParam<TableFileKind> {};

TEST_P(KilledSave, LeavesTheOldFileOrTheNew) {
    QTemporaryDir folder;
    const QString path = folder.filePath("t");
    ParameterTable before;
    ParameterTable after;
    fillLong(before, 5000);
    fillLong(after, 5500);
    ASSERT_TRUE(save(GetParam(), after, path).ok);
    const QByteArray newBytes = readWhole(path).bytes;
    ASSERT_TRUE(save(GetParam(), before, path).ok);
    const QByteArray oldBytes = readWhole(path).bytes;
    ASSERT_NE(oldBytes, newBytes);
    for (int i = 0; i < Tries; ++i) {
        saveUntilKilled(GetParam(), after, before, path, FirstKillUs + i * KillStepUs);
        const QByteArray found = readWhole(path).bytes;
        ASSERT_TRUE(found == oldBytes || found == newBytes) << i << ": " << found.size() << " bytes";
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, KilledSave, testing::Values(TableFileKind::Text, TableFileKind::Spreadsheet));

}  // namespace
}  // namespace kelvane

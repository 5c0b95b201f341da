// The fault display and the list of faults that it keeps, over the status records of a run.
#include "diagnostics/faults/fault_history.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "bench/scripted_operator.h"

namespace kelvane {
namespace {

struct FaultStand {
    ScriptedOperator person;
    int clock = 0;
    FaultHistory history{person, [this] { return QStringLiteral("time %1").arg(++clock); }};
    DriveStatusRecord status;

    void tick(int code, bool text = true) {
        status.FaultCode = quint8(code);
        status.FaultTextValid = text;
        status.FaultName = "oL1 ";
        status.ExceptionText = "Motor overload  ";
        history.showFault(status);
    }
    QStringList row(int number) const {
        QStringList cells;
        for (int c = 0; c < 4; ++c) cells += history.ErrorAdvStringGrid.cell(c, number);
        return cells;
    }
};

const QStringList EmptyRow{"", "", "", ""};
const QString Description = "oL1  : Motor overload  ";

TEST(FaultHistory, EntersAFaultOnceUntilItHasGone) {
    FaultStand b;
    b.tick(0);
    EXPECT_EQ(b.row(0), QStringList({"", "Error Code", "Error Description", "Time"}));
    EXPECT_EQ(b.history.ErrorAdvStringGrid.RowCount(), 2);
    b.tick(5, false);  // its text has not come yet
    EXPECT_FALSE(b.history.standing());
    EXPECT_EQ(b.history.ErrDescriptLabel, "No errors occurred");
    for (int i = 0; i < 1000; ++i) b.tick(5);
    EXPECT_TRUE(b.history.standing());
    EXPECT_EQ(b.history.ErrCodeLabel, "5");
    EXPECT_EQ(b.history.ErrDescriptLabel, Description);
    EXPECT_EQ(b.history.ErrorAdvStringGrid.RowCount(), 3);
    EXPECT_EQ(b.row(1), QStringList({"1", "5", Description, "time 1"}));
    EXPECT_EQ(b.row(2), EmptyRow);
    b.tick(0);
    EXPECT_EQ(b.history.ErrCodeLabel, "0");
    b.tick(5);
    EXPECT_EQ(b.row(2), QStringList({"2", "5", Description, "time 2"}));
    EXPECT_EQ(b.row(3), EmptyRow);
}

// Kept: the fault that follows another directly is entered a tick later; a list that is cleared gets the
// standing fault again.
TEST(FaultHistory, KeepsTheOrderOfItsComparison) {
    FaultStand b;
    b.tick(5);
    b.tick(6);
    EXPECT_EQ(b.history.entries(), 1);
    b.tick(6);
    EXPECT_EQ(b.row(2).mid(0, 2), QStringList({"2", "6"}));
    b.history.ClearTransparentButtonClick();
    EXPECT_EQ(b.history.ErrorAdvStringGrid.RowCount(), 2);
    EXPECT_EQ(b.row(1), EmptyRow);
    b.tick(6);
    EXPECT_EQ(b.row(1), QStringList({"1", "6", Description, "time 3"}));
}

TEST(FaultHistory, TakesTheNamesOfAspenFromItsTable) {
    FaultStand b;
    b.status.DriveFamily = quint8(Family::Aspen);
    b.tick(32);
    EXPECT_EQ(b.history.ErrDescriptLabel, "CE10 : Motor overload  ");
}

TEST(FaultHistory, SavesWhatItShows) {
    FaultStand b;
    QTemporaryDir folder;
    b.tick(5);
    EXPECT_EQ(b.history.asText(),
              "\tError Code\tError Description\tTime\n1\t5\toL1  : Motor overload\ttime 1\n");
    const QString filter = "Text(*.txt)|*.txt|Table(*.csv)|*.csv";
    for (const char* name : {"faults.txt", "faults.CSV"}) {
        b.person.expectSave(filter, "", folder.filePath(name));
        b.history.save();
        const QByteArray bytes = readWhole(folder.filePath(name)).bytes;
        EXPECT_EQ(bytes.contains(",Error Code,"), QByteArray(name).endsWith("CSV"));
        EXPECT_TRUE(bytes.contains("Motor overload"));
    }
    b.person.expectSave(filter, "", std::nullopt);
    b.history.save();
}

}  // namespace
}  // namespace kelvane

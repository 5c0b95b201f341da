// The Parameter window inside the whole tool: how it takes the line, gives it back, and gets on line by
// itself.
#include <gtest/gtest.h>

#include <QAbstractButton>

#include "shell/shell_bench.h"

namespace kelvane {
namespace {

struct FlowBench : ShellBench {
    ParameterSession& session = tool->parameters;
    QStringList transcript() {
        auto* port = dynamic_cast<drive::PracticePort*>(tool->linkPort.behind());
        return port ? port->transcript() : QStringList();
    }
    void press(const char* name) { find<QAbstractButton>(name, &windows->parameterForm)->click(); }
    bool readToTheEnd() {
        return clock.advanceUntil([this] { return session.reader.DriveTableComplete == 1; }, 200000);
    }
};

TEST(ParameterFlow, StopsThePollWhileItIsOpenAndRestartsItWithoutIdentification) {
    FlowBench bench;
    bench.goOnLine(Family::Willow);
    bench.trigger("ParameterManagement");
    ASSERT_TRUE(bench.windows->parameterForm.isVisible());
    EXPECT_EQ(bench.tool->link.ActiveFunction, OwnerParameter);
    const qsizetype before = bench.transcript().size();
    bench.clock.advance(5000);
    EXPECT_EQ(bench.transcript().size(), before);
    bench.windows->parameterForm.close();
    EXPECT_EQ(bench.tool->link.ActiveFunction, OwnerMain);
    bench.clock.advance(1000);
    const QStringList after = bench.transcript().mid(before);
    EXPECT_GT(after.size(), 3);
    EXPECT_TRUE(after.contains("FF032100000B"));
    EXPECT_FALSE(after.contains("FF0321100003"));
}

TEST(ParameterFlow, ReadsTheWholeTableBehindItsProgress) {
    FlowBench bench;
    bench.goOnLine(Family::Hazel);
    bench.trigger("ParameterManagement");
    bench.press("ReadDriveTransparentButton");
    bench.clock.advance(300);
    EXPECT_TRUE(bench.windows->progressForm.isVisible());
    ASSERT_TRUE(bench.readToTheEnd());
    EXPECT_FALSE(bench.windows->progressForm.isVisible());
    // 95 parameters in ten groups, the header and the group rows.
    EXPECT_EQ(bench.session.DriveAdvStringGrid.RowCount(), 1 + 10 + 95);
    EXPECT_EQ(bench.session.DriveAdvStringGrid.cell(3, 12), "Max Output Freq.");
    EXPECT_TRUE(bench.session.DriveAdvStringGrid.columnHidden(4));  // Hazel has no units
}

TEST(ParameterFlow, GoesThroughComSetupWhenTheLinkIsOffLineAndThenReads) {
    FlowBench bench;
    bench.tool->choosePracticeFamily(Family::Aspen);
    bench.trigger("ParameterManagement");
    bench.person.expectBox("The serial port is not yet functioning ! Please set up first !", "Cofirm");
    bench.press("ReadDriveTransparentButton");
    ASSERT_TRUE(bench.windows->comSetupForm.isVisible());
    bench.tool->comSetup.TestButtonClick();
    bench.clock.advance(400);
    bench.person.expectBox("Do you want to On - Line now ?", "Cofirm", BoxAnswer::Yes);
    bench.tool->comSetup.OKBitBtnClick();
    EXPECT_FALSE(bench.windows->comSetupForm.isVisible());
    EXPECT_TRUE(bench.windows->initialForm.isVisible());
    bench.clock.advanceUntil([&] { return bench.session.progress.shown; }, 20000);
    EXPECT_FALSE(bench.windows->initialForm.isVisible());
    EXPECT_EQ(bench.tool->link.ActiveFunction, OwnerParameter);
    EXPECT_TRUE(bench.readToTheEnd());
    EXPECT_TRUE(bench.transcript().back().startsWith("FF03"));
}

TEST(ParameterFlow, TellsThatItCannotReadWhenComSetupIsLeftOffLine) {
    FlowBench bench;
    bench.trigger("ParameterManagement");
    bench.person.expectBox("The serial port is not yet functioning ! Please set up first !", "Cofirm");
    bench.press("ReadDriveTransparentButton");
    bench.person.expectBox("The serial port is not yet functioning !\nCan not perform this function !",
                           "Cofirm");
    bench.windows->comSetupForm.close();
    EXPECT_FALSE(bench.windows->progressForm.isVisible());
    EXPECT_EQ(bench.tool->link.ActiveFunction, OwnerParameter);
    bench.windows->parameterForm.close();
    EXPECT_FALSE(bench.tool->link.TxTimer.Enabled());
}

TEST(ParameterFlow, SurvivesAnUnpluggedAdapterInAReadAndGoesOnByRetry) {
    FlowBench bench;
    bench.goOnLine(Family::Willow);
    bench.trigger("ParameterManagement");
    bench.press("ReadDriveTransparentButton");
    bench.clock.advance(1500);
    auto* port = dynamic_cast<drive::PracticePort*>(bench.tool->linkPort.behind());
    ASSERT_NE(port, nullptr);
    port->unplug();
    bench.person.expectLinkFailure("Communication Timeout", false, LinkAnswer::Retry,
                                   [&] { port->plugIn(); });
    ASSERT_TRUE(bench.readToTheEnd());
    const StringGrid& grid = bench.session.DriveAdvStringGrid;
    QSet<QString> numbers;
    for (int row = 1; row < grid.RowCount(); ++row)
        if (!isGroupRow(grid, row)) {
            EXPECT_FALSE(numbers.contains(grid.cell(1, row))) << row;
            EXPECT_FALSE(grid.cell(3, row).isEmpty()) << row;
            numbers.insert(grid.cell(1, row));
        }
    EXPECT_EQ(numbers.size(), 126);
}

}  // namespace
}  // namespace kelvane

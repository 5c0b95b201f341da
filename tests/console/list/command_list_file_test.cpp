// The .cml file byte for byte, and what its reader makes of every kind of damage.
#include "console/list/command_list_file.h"

#include <gtest/gtest.h>

#include "console/flasher/motorola_file.h"

namespace kelvane {
namespace {

const QByteArray GoodFile =
    "[Com Setup]\r\nCom port     = 3\r\nModbus Mode  = RTU\r\nBaud Rate    = 9600\r\nDtatabits    = 8\r\n"
    "Parity Check = N\r\nStopbits     = 2\r\n\r\n"
    "[Page A]\r\nDefault Command    =\r\nAdvStringGrid1 Row =12\r\n"
    "AdvStringGrid1 Name=,,,,,,,,,,,\r\nAdvStringGrid1 Unit=,,,,,,,,,,,\r\nAdvStringGrid1 "
    "Deci=,,,,,,,,,,,\r\n\r\n"
    "[Page B]\r\nCmdStringGrid Row = 3\r\nCheckBox State    = 1,0\r\nCommand List      = "
    "010321000001,null\r\n"
    "Replied Message   = 0103021234B533,null\r\nReplied Data      = 1234H,null\r\nNote List         = "
    "speed,null\r\n"
    "Replied Format    = Replied Data (Hex)\r\nTimeout Interval  = 500\r\nTimeout Display   = 500 ms\r\n"
    "Auto break char   = 0D0A0000\r\nStringGrid1 Row   = 3\r\nStringGrid1 Addr  = 010321000001,,,,,,,,,,\r\n"
    "StringGrid1 Name  = 0103021234B533,,,,,,,,,,\r\nStringGrid1 Unit  = speed,,,,,,,,,,\r\n"
    "StringGrid1 Dot   = ,,,,,,,,,,\r\n";

CommandListFile goodState() {
    CommandListFile file;
    file.ComSetup = {"3", "RTU", "9600", "8", "N", "2"};
    file.AdvStringGrid1Rows = 12;
    file.rows = {{true, "010321000001", "0103021234B533", "1234H", "speed"}, {}};
    file.RepliedFormat = "Replied Data (Hex)";
    file.TimeOut1 = 500;
    file.timeOutDisplay = "500 ms";
    file.breakCells = {"0D", "0A", "00", "00"};
    return file;
}

QByteArray changed(QByteArray before, const QByteArray& after) {
    return QByteArray(GoodFile).replace(before, after);
}

TEST(CommandListFile, IsWrittenByteForByteAndReadBack) {
    EXPECT_EQ(commandListBytes(goodState()).toStdString(), GoodFile.toStdString());

    CommandListFile read;
    const CommandListRead result = readCommandList(GoodFile, read);
    EXPECT_TRUE(result.ok && result.pageA && result.pageB);
    ASSERT_EQ(read.rows.size(), 2u);
    EXPECT_TRUE(read.rows[0].checked);
    EXPECT_EQ(read.rows[0].message, "0103021234B533");
    EXPECT_EQ(read.rows[0].note, "speed");
    EXPECT_FALSE(read.rows[1].checked);
    EXPECT_EQ(read.rows[1].command, "");
    EXPECT_EQ(read.TimeOut1, 500u);
    EXPECT_EQ(read.timeOutDisplay, "500 ms");
    EXPECT_EQ(read.breakCells[1], "0A");
    EXPECT_EQ(read.others.OthersRowCount, 12);
    EXPECT_EQ(read.ComSetup, ComSetupSection()) << "the com settings are for the reader's eye";

    CommandListFile others = goodState();
    others.AdvStringGrid1Rows = 3;
    others.others = {3, "0A0321000002", {"", "a", "b"}, {"", "x", ""}, {"", "1", "0"}};
    others.rows.resize(1);
    const QByteArray bytes = commandListBytes(others);
    EXPECT_TRUE(bytes.contains(
        "Default Command    =0A0321000002\r\nAdvStringGrid1 Row =3\r\nAdvStringGrid1 Name=a,b,\r\n"
        "AdvStringGrid1 Unit=x,,\r\nAdvStringGrid1 Deci=1,0,\r\n"));
    EXPECT_TRUE(bytes.contains("CheckBox State    = 1\r\n")) << "one row has no comma";
    CommandListFile again;
    readCommandList(bytes, again);
    EXPECT_EQ(again.others.OthersName, others.others.OthersName);
}

TEST(CommandListFile, KeepsPlaceForKeyAndLetsACommaMoveTheList) {
    CommandListFile read;
    readCommandList(changed("Command List      = ", "anything of twenty! "), read);
    EXPECT_EQ(read.rows[0].command, "010321000001");
    read = {};
    readCommandList(changed("Default Command    =", "key=0A03"), read);
    EXPECT_EQ(read.others.OthersDefCmd, "0A03");
    read = {};
    readCommandList(changed("Note List         = speed,null", "Note List         = a,b,c"), read);
    EXPECT_EQ(read.rows[0].note + read.rows[1].note, "ab");
}

TEST(CommandListFile, TakesWhatStandsBeforeADamage) {
    CommandListFile file = goodState();
    CommandListRead read = readCommandList(changed("[Page B]", "[Page B] "), file);
    EXPECT_TRUE(read.pageA && !read.pageB && read.ok);
    read = readCommandList(changed("[Page A]", " [Page A]"), file);
    EXPECT_TRUE(!read.pageA && read.pageB);

    file = goodState();
    file.TimeOut1 = 77;
    read = readCommandList(changed("= 500\r\n", "= five\r\n"), file);
    EXPECT_FALSE(read.ok);
    EXPECT_EQ(file.TimeOut1, 77u);
    EXPECT_EQ(file.rows.size(), 2u) << "the list before it was taken";

    file = goodState();
    EXPECT_FALSE(readCommandList(changed("CmdStringGrid Row = 3", "CmdStringGrid Row = x"), file).ok);
    EXPECT_EQ(file.rows[0].command, "010321000001") << "a list on the screen is not lost";

    // No count is trusted.
    readCommandList(changed("CmdStringGrid Row = 3", "CmdStringGrid Row = 2000000000"), file);
    EXPECT_EQ(file.rows.size(), size_t(CommandListFile::MaxRows));
    readCommandList(changed("CmdStringGrid Row = 3", "CmdStringGrid Row = -7"), file);
    EXPECT_EQ(file.rows.size(), 1u);
    readCommandList(changed("AdvStringGrid1 Row =12", "AdvStringGrid1 Row =99"), file);
    EXPECT_EQ(file.others.OthersRowCount, OthersRoom);

    // Line ends of either kind, and an end anywhere.
    EXPECT_TRUE(readCommandList(QByteArray(GoodFile).replace("\r\n", "\n"), file).ok);
    for (qsizetype cut = 0; cut < GoodFile.size(); cut += 7) readCommandList(GoodFile.left(cut), file);
}

TEST(MotorolaFile, TurnsRecordsIntoCommandsAndRefusesTooMany) {
    EXPECT_EQ(flashLine("S00600004844521B"), "53300600004844521B");
    EXPECT_EQ(
        readMotorolaFile("S1130000285F245F2212226A000424290008237C2A\r\n\r\njunk\nSX1\nS9030000FC").lines,
        QStringList({"5331130000285F245F2212226A000424290008237C2A", "5339030000FC"}));
    EXPECT_TRUE(readMotorolaFile(QByteArray("S1\n").repeated(FlashLinesRoom + 1)).tooLong);
    EXPECT_EQ(readMotorolaFile(QByteArray("S1\n").repeated(FlashLinesRoom)).lines.size(), FlashLinesRoom);
}

}  // namespace
}  // namespace kelvane

#include "link/frame_codec.h"

#include <gtest/gtest.h>

#include "bench/decimal_sep.h"
#include "link/number_text.h"

namespace kelvane {
namespace {

QByteArray bytes(const char* hex) { return QByteArray::fromHex(hex); }

// Command, LRC, CRC in the order of the wire; computed by an independent program.
struct FrameRow {
    const char* command;
    const char* lrc;
    const char* crc;
};
constexpr FrameRow frames[] = {
    {"FF0321100003", "CA", "1BEC"}, {"FF0620000002", "D9", "1615"}, {"FF0321010001", "DB", "CA28"},
    {"FF0620000001", "DA", "5614"}, {"FF0321000010", "CD", "5BE4"}, {"FF0620000003", "D8", "D7D5"},
    {"FF032100000B", "D2", "1BEF"}, {"FF0620000030", "AB", "97C0"}, {"FF032100000E", "CF", "DBEC"},
    {"FF0620020002", "D7", "B7D5"}, {"FF0321190001", "C3", "4A2F"}, {"FF0620050003", "D3", "C7D4"},
    {"FF0321160003", "C4", "FBED"}, {"FF0620050005", "D1", "47D6"}, {"FF03210B0002", "D0", "AA2B"},
    {"FF0620050001", "D5", "4615"}, {"FF03211B0001", "C1", "EBEF"}, {"FF0620050006", "D0", "07D7"},
    {"FF0321110001", "CB", "CBED"}, {"FF0620011388", "3F", "CB42"}, {"FF0300500001", "AD", "91C5"},
    {"FF0601001770", "73", "93FC"}, {"FF0300000001", "FD", "91D4"}, {"FF06010005DC", "19", "9F21"},
    {"FF0300060001", "F7", "71D5"}, {"FF060100FFFB", "00", "9D9B"}, {"FF0307000001", "F6", "90A0"},
    {"FF060100FFF4", "07", "DD9F"}, {"FF0301000001", "FC", "9028"}, {"FF060100000F", "EB", "DDEC"},
    {"FF0331000008", "C5", "5F2E"}, {"FF0333020008", "C1", "FF56"}, {"FF0331010008", "C4", "0EEE"},
    {"FF0333040008", "BF", "1F57"}, {"FF0331020008", "C3", "FEEE"}, {"FF033304000A", "BD", "9E96"},
    {"FF0303000001", "FA", "9190"}, {"FF033204000A", "BE", "9F6A"}, {"FF0303010001", "F9", "C050"},
    {"FF030000000F", "EF", "1010"}, {"FF0303020001", "F8", "3050"}, {"FF030001000F", "EE", "41D0"},
    {"FF030C000001", "F1", "9284"}, {"FF030100000F", "EE", "11EC"}, {"FF0301000004", "F9", "502B"},
};

TEST(FrameCodec, FramesEveryCommandOfTheTable) {
    for (const FrameRow& row : frames) {
        const QString command = QString::fromLatin1(row.command);
        EXPECT_EQ(buildFrame(LinkMode::Ascii, command, FrameCheck::Standard).wire,
                  ":" + QByteArray(row.command) + row.lrc + "\r\n");
        const TxFrame rtu = buildFrame(LinkMode::Rtu, command, FrameCheck::Standard);
        EXPECT_EQ(rtu.wire, bytes(row.command) + bytes(row.crc));
        EXPECT_EQ(rtu.TxFrameText.toStdString(), std::string(row.command) + row.crc);
    }
    EXPECT_EQ(buildFrame(LinkMode::Ascii, "FF0321100003", FrameCheck::Standard).TxFrameText.toStdString(),
              ":FF0321100003CA\\x0D\\x0A");
    EXPECT_EQ(CalcLRC({}), 0);
}

TEST(FrameCodec, FletcherFoldsModulo255) {
    EXPECT_EQ(CalcFletcher(bytes("FF0321100003")), 0x02C6);
    EXPECT_EQ(CalcFletcher(bytes("FF0620000002")), 0x37A0);
    EXPECT_EQ(CalcFletcher(bytes("0102")), 0xF804);
    EXPECT_EQ(CalcFletcher(bytes("01")), 0xFD01);
}

TEST(FrameCodec, FramesForTheConsoleWithoutCheckAndWithTheSecondCheck) {
    const QString command = QStringLiteral("FF0321100003");
    EXPECT_EQ(buildFrame(LinkMode::Rtu, command, FrameCheck::Fletcher).wire, bytes("FF032110000302C6"));
    EXPECT_EQ(buildFrame(LinkMode::Rtu, command, FrameCheck::None).wire, bytes("FF0321100003"));
    EXPECT_EQ(buildFrame(LinkMode::Ascii, command, FrameCheck::None).wire, "FF0321100003");
}

TEST(FrameCodec, KeepsTheLastOddDigitInAsciiAndLosesItInRtu) {
    EXPECT_EQ(StrTo8bitInt("FF032"), bytes("FF03"));
    EXPECT_EQ(buildFrame(LinkMode::Ascii, "FF032", FrameCheck::None).wire, "FF032");
    EXPECT_EQ(buildFrame(LinkMode::Rtu, "FF032", FrameCheck::None).wire, bytes("FF03"));
}

RxBuffer received(LinkMode mode, std::initializer_list<QByteArray> bursts) {
    RxBuffer buffer;
    buffer.prepare(mode);
    for (const QByteArray& burst : bursts) buffer.takeBurst(mode, burst);
    return buffer;
}

struct JudgeRow {
    const char* name;
    LinkMode mode;
    const char* command;
    QByteArray reply;
    ReplyVerdict verdict;
    int exceptionCode;
};

class JudgeReply : public testing::TestWithParam<JudgeRow> {};

TEST_P(JudgeReply, GivesTheVerdict) {
    const JudgeRow& row = GetParam();
    const JudgedReply judged = judgeReply(row.mode, row.command, received(row.mode, {row.reply}));
    EXPECT_EQ(static_cast<int>(judged.verdict), static_cast<int>(row.verdict));
    EXPECT_EQ(judged.ExceptionCode, row.exceptionCode);
}

using enum ReplyVerdict;
INSTANTIATE_TEST_SUITE_P(
    Rows, JudgeReply,
    testing::Values(
        JudgeRow{"read", LinkMode::Ascii, "FF0321100003", ":FF030604000003007B76\r\n", Good, 0},
        JudgeRow{"readRtu", LinkMode::Rtu, "FF0321100003", bytes("FF030604000003007BD8B6"), Good, 0},
        JudgeRow{"twoWords", LinkMode::Ascii, "FF0321100003", ":FF030404000003F3\r\n", LengthError, 0},
        JudgeRow{"echo", LinkMode::Ascii, "FF0601001770", ":FF060100177073\r\n", Good, 0},
        JudgeRow{"echoRtu", LinkMode::Rtu, "FF0601001770", bytes("FF060100177093FC"), Good, 0},
        JudgeRow{"otherFunction", LinkMode::Ascii, "FF0421100001", ":FF060100177073\r\n", FunctionError, 0},
        JudgeRow{"exception", LinkMode::Ascii, "FF0321100003", ":FF83027C\r\n", Exception, 2},
        JudgeRow{"exceptionRtu", LinkMode::Rtu, "FF0321100003", bytes("FF8302A101"), Exception, 2},
        JudgeRow{"writeException", LinkMode::Ascii, "FF0601001770", ":FF860477\r\n", Exception, 4},
        JudgeRow{"exceptionOtherFunction", LinkMode::Ascii, "FF0421100001", ":FF860477\r\n", Exception, 4},
        JudgeRow{"lowerCaseCheck", LinkMode::Ascii, "FF0321100003", ":FF83027c\r\n", BadChecksum, 0},
        JudgeRow{"badLrc", LinkMode::Ascii, "FF0321100003", ":FF83027D\r\n", BadChecksum, 0},
        JudgeRow{"badCrc", LinkMode::Rtu, "FF0321100003", bytes("FF8302A102"), BadChecksum, 0},
        JudgeRow{"colonOnly", LinkMode::Ascii, "FF0321100003", ":", BadChecksum, 0},
        JudgeRow{"oneByte", LinkMode::Rtu, "FF0321100003", bytes("FF"), BadChecksum, 0},
        JudgeRow{"pastTheRoom", LinkMode::Rtu, "FF0321100003", QByteArray(240, 'x'), BadChecksum, 0}),
    [](const auto& testInfo) { return testInfo.param.name; });

TEST(RxBuffer, KeepsTheLineFeedBehindTheBinaryOfAnAsciiReply) {
    const JudgedReply judged =
        judgeReply(LinkMode::Ascii, "FF0321100003", received(LinkMode::Ascii, {":FF030604000003007B76\r\n"}));
    EXPECT_EQ(judged.RxData, bytes("FF030604000003007B760A"));
    EXPECT_EQ(wordAt(judged.RxData, 4), 0x0400);
    EXPECT_EQ(wordAt(judged.RxData, 8), 123);
    EXPECT_EQ(wordAt(judged.RxData, 11), 0x0A00);  // past the end reads 0
}

TEST(RxBuffer, ThrowsAFirstAsciiBurstWithoutColonAwayAndTakesLaterOnesUntested) {
    RxBuffer buffer = received(LinkMode::Ascii, {"#\r\n"});
    EXPECT_EQ(buffer.RxByteCount, 0);
    EXPECT_EQ(buffer.RxFrameDone, 0);  // it is not scanned for its end either
    EXPECT_TRUE(buffer.RxData.isEmpty() && buffer.RxLogText.isEmpty());
    const auto verdict = [](std::initializer_list<QByteArray> bursts) {
        return judgeReply(LinkMode::Ascii, "FF0321010001", received(LinkMode::Ascii, bursts)).verdict;
    };
    EXPECT_EQ(verdict({"#", ":FF0302", "0005F7\r\n"}), Good);
    EXPECT_EQ(verdict({"#", "FF03020005F7\r\n"}), BadChecksum);
}

TEST(RxBuffer, EndsAnAsciiFrameByTheLineFeedAfterACarriageReturn) {
    EXPECT_EQ(received(LinkMode::Ascii, {":FF\n"}).RxFrameDone, 0);
    EXPECT_EQ(received(LinkMode::Ascii, {":FF\r"}).RxFrameDone, 0);
    EXPECT_EQ(received(LinkMode::Ascii, {":FF\rxy", "z\n"}).RxFrameDone, 1);
    EXPECT_EQ(received(LinkMode::Rtu, {":FF\r\n"}).RxFrameDone, 0);
}

TEST(RxBuffer, LogsTextEscapedAndRtuAsDigits) {
    EXPECT_EQ(received(LinkMode::Ascii, {":FF83027C\r\n"}).RxLogText.toStdString(), ":FF83027C\\x0D\\x0A");
    EXPECT_EQ(received(LinkMode::Rtu, {bytes("FF83"), bytes("02A101")}).RxLogText.toStdString(), "FF8302A101");
}

TEST(RxBuffer, KeepsTheEightBitByteCount) {
    RxBuffer buffer = received(LinkMode::Rtu, {QByteArray(200, 'a'), QByteArray(56, 'b')});
    EXPECT_EQ(buffer.RxByteCount, 0);
    EXPECT_EQ(buffer.RxData.size(), 256);
    EXPECT_EQ(buffer.RxRawBytes[199], 'a');  // what lies past the room is dropped
}

TEST(WholeRtuReply, IsExactlyTheReplyToWhatWasSent) {
    const auto whole = [](const char* command, const QByteArray& reply) {
        return isWholeRtuReply(command, received(LinkMode::Rtu, {reply}));
    };
    EXPECT_TRUE(whole("FF0321100003", bytes("FF030604000003007BD8B6")));
    EXPECT_FALSE(whole("FF0321100002", bytes("FF030604000003007BD8B6")));
    EXPECT_FALSE(whole("FF0321100003", bytes("FF030604000003007BD8B7")));
    EXPECT_TRUE(whole("FF0321100003", bytes("FF8302A101")));
    EXPECT_TRUE(whole("FF0601001770", bytes("FF060100177093FC")));
    EXPECT_FALSE(whole("FF0321100003", bytes("FF03211000031BEC")));  // an echo is no reply
    EXPECT_FALSE(whole("FF03", bytes("FF8302A101")));
}

TEST(ReplyLength, IsToldByTheFunctionThatHasCome) {
    const auto length = [](LinkMode mode, const char* command, const QByteArray& come) {
        return replyLength(mode, QLatin1String(command), received(mode, {come}));
    };
    EXPECT_EQ(length(LinkMode::Rtu, "FF0321100003", bytes("FF")), 0);
    EXPECT_EQ(length(LinkMode::Rtu, "FF0321100003", bytes("FF03")), 11);
    EXPECT_EQ(length(LinkMode::Rtu, "FF0321100003", bytes("FF83")), 5);
    EXPECT_EQ(length(LinkMode::Rtu, "FF0601001770", bytes("FF06")), 8);
    EXPECT_EQ(length(LinkMode::Rtu, "FF0321100003", bytes("FF06")), 0);
    EXPECT_EQ(length(LinkMode::Rtu, "FF0800000000", bytes("FF08")), 0);
    EXPECT_EQ(length(LinkMode::Rtu, "FF03", bytes("FF03")), 0);
    EXPECT_EQ(length(LinkMode::Ascii, "FF0321100003", ":FF0"), 0);
    EXPECT_EQ(length(LinkMode::Ascii, "FF0321100003", ":FF03"), 23);
    EXPECT_EQ(length(LinkMode::Ascii, "FF0321100003", ":FF83"), 11);
    EXPECT_EQ(length(LinkMode::Ascii, "FF0321100003", ":FFzz"), 0);
}

TEST(RtuSilence, IsThreeAndAHalfCharactersOrTheFixedTime) {
    EXPECT_EQ(rtuSilenceUs(4011, 9600, 2000), 4011);
    EXPECT_EQ(rtuSilenceUs(334, 115200, 2000), 2000);
    EXPECT_EQ(rtuSilenceUs(334, 115200, 0), 1750);
}

TEST(NumberText, BasesBothWays) {
    EXPECT_EQ(IntToBaseStr(255, 16, 2), "FF");
    EXPECT_EQ(IntToBaseStr(10, 16, 4), "000A");
    EXPECT_EQ(IntToBaseStr(300, 16, 2), "2C");
    EXPECT_EQ(IntToBaseStr(10, 16, 0), "A");
    EXPECT_EQ(IntToBaseStr(35, 36, 1), "Z");
    EXPECT_EQ(IntToBaseStr(5, 10, 3), "005");
    EXPECT_EQ(IntToBaseStr(-12, 16, 4), "FFF4");
    EXPECT_EQ(BaseStrToInt("00G1", 16), -1);
    EXPECT_EQ(BaseStrToInt("ff", 16), 255);
    EXPECT_EQ(BaseStrToInt("", 16), 0);
    EXPECT_EQ(BaseStrToInt("102", 2), -1);
    EXPECT_EQ(BaseStrToInt("12", 10), 12);
    EXPECT_EQ(HexPairToInt('2', 'C'), 0x2C);
    EXPECT_EQ(HexPairToInt(' ', ' '), 0xF0);  // wrong, and without an error
}

TEST(NumberText, DecimalPointsFollowTheSeparator) {
    struct Row {
        const char* digits;
        int places;
        const char* text;
    };
    for (const Row row : {Row{"5", 2, "0.05"}, {"1234", 1, "123.4"}, {"12", 2, "0.12"}, {"0", 3, "0.000"},
                          {"1234", 0, "1234"}, {"1234", 3, "1.234"}, {"123", 3, "0.123"}, {"-5", 1, "-.5"}})
        EXPECT_EQ(InsertDecimalPoint(row.digits, row.places).toStdString(), row.text);
    for (const Row row : {Row{"12.3", 2, "1230"}, {"1.5", 3, "1500"}, {"12", 1, "120"}, {"1.234", 2, "123"},
                          {"60", 2, "6000"}, {"12.7", 0, "12"}, {".5", 1, "5"}, {"-.5", 1, "-5"}})
        EXPECT_EQ(ScaleDecimalText(row.digits, row.places).toStdString(), row.text);
    EXPECT_FLOAT_EQ(DecimalTextToFloat("12.34"), 12.34F);
    EXPECT_FLOAT_EQ(DecimalTextToFloat("1.05"), 1.05F);
    EXPECT_FLOAT_EQ(DecimalTextToFloat("-1.5"), -0.5F);  // the fraction is always added
    EXPECT_FLOAT_EQ(DecimalTextToFloat("7"), 7.0F);
    const UsingDecimalSep comma(",");
    EXPECT_EQ(InsertDecimalPoint("12", 2), "0,12");
    EXPECT_EQ(ScaleDecimalText("12,3", 2), "1230");
    EXPECT_EQ(withoutSeparatorToInt("60,00"), 6000);
    EXPECT_EQ(withoutSeparatorToInt("60.00"), std::nullopt);
}

}  // namespace
}  // namespace kelvane

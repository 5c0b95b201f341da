#include "link/frame_codec.h"

#include <gtest/gtest.h>

#include "bench/decimal_sep.h"
#include "link/number_text.h"

namespace kelvane {
namespace {

QByteArray bytes(const char* hex) { return QByteArray::fromHex(hex); }

// Those with the usual check stand word for word in the golden transcripts.
TEST(FrameCodec, FramesForTheConsoleWithoutCheckAndWithTheSecondCheck) {
    EXPECT_EQ(buildFrame(LinkMode::Rtu, "FF0321100003", FrameCheck::Fletcher).wire,
              bytes("FF032110000302C6"));
    EXPECT_EQ(CalcFletcher(bytes("0102")), 0xF804);
    EXPECT_EQ(buildFrame(LinkMode::Ascii, "FF032", FrameCheck::None).wire, "FF032");
    EXPECT_EQ(buildFrame(LinkMode::Rtu, "FF032", FrameCheck::None).wire, bytes("FF03"));  // the odd digit
}

RxBuffer received(LinkMode mode, std::initializer_list<QByteArray> bursts) {
    RxBuffer buffer;
    buffer.prepare(mode);
    for (const QByteArray& burst : bursts) buffer.takeBurst(mode, burst);
    return buffer;
}

using enum ReplyVerdict;

TEST(JudgeReply, GivesTheVerdict) {
    struct Row {
        LinkMode mode;
        const char* command;
        QByteArray reply;
        ReplyVerdict verdict;
        int exceptionCode = 0;
    };
    const char* const read = "FF0321100003";
    const char* const write = "FF0601001770";
    const char* const other = "FF0421100001";
    const Row rows[] = {
        {LinkMode::Ascii, read, ":FF030604000003007B76\r\n", Good},
        {LinkMode::Rtu, read, bytes("FF030604000003007BD8B6"), Good},
        {LinkMode::Ascii, read, ":FF030404000003F3\r\n", LengthError},
        {LinkMode::Ascii, write, ":FF060100177073\r\n", Good},
        {LinkMode::Ascii, other, ":FF060100177073\r\n", FunctionError},
        {LinkMode::Ascii, read, ":FF83027C\r\n", Exception, 2},
        {LinkMode::Ascii, write, ":FF860477\r\n", Exception, 4},
        {LinkMode::Ascii, other, ":FF860477\r\n", Exception, 4},
        {LinkMode::Ascii, read, ":FF83027c\r\n", BadChecksum},
        {LinkMode::Rtu, read, bytes("FF8302A102"), BadChecksum},
        {LinkMode::Ascii, read, ":", BadChecksum},
        {LinkMode::Rtu, read, bytes("FF"), BadChecksum},
        {LinkMode::Rtu, read, QByteArray(240, 'x'), BadChecksum},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.command + (" < " + row.reply.toPercentEncoding().toStdString()));
        const JudgedReply judged = judgeReply(row.mode, row.command, received(row.mode, {row.reply}));
        EXPECT_EQ(static_cast<int>(judged.verdict), static_cast<int>(row.verdict));
        EXPECT_EQ(judged.ExceptionCode, row.exceptionCode);
    }
}

TEST(RxBuffer, KeepsTheLineFeedBehindTheBinaryOfAnAsciiReply) {
    const JudgedReply judged =
        judgeReply(LinkMode::Ascii, "FF0321100003", received(LinkMode::Ascii, {":FF030604000003007B76\r\n"}));
    EXPECT_EQ(judged.RxData, bytes("FF030604000003007B760A"));
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

TEST(RxBuffer, KeepsTheEightBitByteCount) {
    RxBuffer buffer = received(LinkMode::Rtu, {QByteArray(200, 'a'), QByteArray(56, 'b')});
    EXPECT_EQ(buffer.RxByteCount, 0);
    EXPECT_EQ(buffer.RxData.size(), 256);
    EXPECT_EQ(buffer.RxRawBytes[199], 'a');  // what lies past the room is dropped
}

TEST(WholeRtuReply, IsExactlyTheReplyToWhatWasSent) {
    const auto whole = [](const char* command, const char* reply) {
        return isWholeRtuReply(command, received(LinkMode::Rtu, {bytes(reply)}));
    };
    EXPECT_TRUE(whole("FF0321100003", "FF030604000003007BD8B6"));
    EXPECT_FALSE(whole("FF0321100002", "FF030604000003007BD8B6"));
    EXPECT_FALSE(whole("FF0321100003", "FF030604000003007BD8B7"));
    EXPECT_TRUE(whole("FF0321100003", "FF8302A101"));
    EXPECT_TRUE(whole("FF0601001770", "FF060100177093FC"));
    EXPECT_FALSE(whole("FF0321100003", "FF03211000031BEC"));  // an echo is no reply
    EXPECT_FALSE(whole("FF03", "FF8302A101"));
}

TEST(ReplyLength, IsToldByTheFunctionThatHasCome) {
    const auto rtu = [](const char* command, const char* come) {
        return replyLength(LinkMode::Rtu, command, received(LinkMode::Rtu, {bytes(come)}));
    };
    const auto ascii = [](const QByteArray& come) {
        return replyLength(LinkMode::Ascii, "FF0321100003", received(LinkMode::Ascii, {come}));
    };
    EXPECT_EQ(rtu("FF0321100003", "FF03"), 11);
    EXPECT_EQ(rtu("FF0321100003", "FF83"), 5);
    EXPECT_EQ(rtu("FF0601001770", "FF06"), 8);
    EXPECT_EQ(ascii(":FF03"), 23);
    EXPECT_EQ(ascii(":FF83"), 11);
    EXPECT_EQ(rtu("FF0321100003", "FF") + rtu("FF0321100003", "FF06") + rtu("FF0800000000", "FF08") +
                  rtu("FF03", "FF03") + ascii(":FF0") + ascii(":FFzz"),
              0)
        << "not known yet, or never";
}

TEST(NumberText, BasesBothWays) {
    EXPECT_EQ(IntToBaseStr(10, 16, 4), "000A");
    EXPECT_EQ(IntToBaseStr(300, 16, 2), "2C");
    EXPECT_EQ(IntToBaseStr(10, 16, 0), "A");
    EXPECT_EQ(IntToBaseStr(35, 36, 1), "Z");
    EXPECT_EQ(IntToBaseStr(-12, 16, 4), "FFF4");
    EXPECT_EQ(BaseStrToInt("00G1", 16), -1);
    EXPECT_EQ(BaseStrToInt("ff", 16), 255);
    EXPECT_EQ(BaseStrToInt("", 16), 0);
    EXPECT_EQ(BaseStrToInt("102", 2), -1);
    EXPECT_EQ(HexPairToInt(' ', ' '), 0xF0);  // wrong, and without an error
}

TEST(NumberText, DecimalPointsFollowTheSeparator) {
    struct Row {
        const char* digits;
        int places;
        const char* text;
    };
    for (const Row row : {Row{"5", 2, "0.05"}, {"1234", 0, "1234"}, {"1234", 3, "1.234"}, {"-5", 1, "-.5"}})
        EXPECT_EQ(InsertDecimalPoint(row.digits, row.places).toStdString(), row.text);
    for (const Row row :
         {Row{"12.3", 2, "1230"}, {"12", 1, "120"}, {"1.234", 2, "123"}, {"12.7", 0, "12"}, {"-.5", 1, "-5"}})
        EXPECT_EQ(ScaleDecimalText(row.digits, row.places).toStdString(), row.text);
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

// What the explainer says of logged lines, good and broken.
#include "console/log/frame_explainer.h"

#include <gtest/gtest.h>

namespace kelvane {
namespace {

const RegisterNames Names = [](quint16 address) -> std::optional<RegisterName> {
    if (address != 0x2100) return std::nullopt;
    return RegisterName{"21-00", "Output frequency", "Hz", 2};
};

std::string exchange(const char* sent, const char* received, bool rtu = true) {
    const QString line = QString("[d 09:08:07:06] Send > %1 .......  Receive > %2").arg(sent, received);
    return explainExchange(line, rtu, 12300, Names).toStdString();
}

TEST(FrameExplainer, TellsRequestReplyAndTime) {
    EXPECT_EQ(
        exchange("0103210000018E36", "0103021234B533"),
        "-- Sent --\nAddress: 1\nFunction: 3, read registers\nRegister: 2100H 21-00 Output frequency\n"
        "Registers asked for: 1\nCheck: CRC 8E36, good\n-- Received --\n12.3 ms after the send\nAddress: 1\n"
        "Function: 3, read registers\n2100H 21-00 Output frequency: 1234H = 4660 = 46.60 Hz\nCheck: CRC "
        "B533, good");
    const std::string ascii = exchange(R"(:010620000002D7\x0D\x0A)", R"(:010620000002D7\x0D\x0A)", false);
    EXPECT_NE(ascii.find("Value: 0002H = 2\nCheck: LRC D7, good"), std::string::npos);
    EXPECT_NE(ascii.find("Carried out"), std::string::npos);
    EXPECT_NE(exchange("0103210000018E36", "018302C0F1").find("Refused: exception 2, illegal data address"),
              std::string::npos);
    EXPECT_NE(exchange("0103210000013F9A", "No response").find("Fletcher 3F9A, good"), std::string::npos);
    EXPECT_NE(exchange("0103210000018E36", "No response").find("No byte came"), std::string::npos);
    EXPECT_NE(exchange("0103210000018E36", "0103021234B534").find("CRC B534 is wrong, it should be B533"),
              std::string::npos);
}

TEST(FrameExplainer, SurvivesAnyLine) {
    const QString Request = R"(\x01\x03\x21\x00\x00\x01\x8E\x36)";
    const QString Reply = R"(\x01\x03\x02\x12\x34\xB5\x33)";
    for (const char* junk : {"", "01", "0103", "ZZZZ", "\\x0", "0103FF1234B533", "010300B533"}) {
        EXPECT_FALSE(exchange(junk, junk).empty());
        EXPECT_FALSE(exchange(junk, junk, false).empty());
    }
    EXPECT_EQ(explainExchange("no exchange at all", true, -1, {}), "");
    EXPECT_NE(explainHeard({Request}, true, Names).indexOf("Registers asked for: 1"), -1);
    EXPECT_NE(explainHeard({Reply}, true, Names).indexOf("Word 1: 1234H"), -1);
    const QString answer = explainHeard({Reply, Request, 12}, true, Names);
    EXPECT_TRUE(answer.startsWith("12 ms after the request"));
    EXPECT_NE(answer.indexOf("2100H 21-00 Output frequency: 1234H = 4660 = 46.60 Hz"), -1);
    EXPECT_NE(explainHeard({Reply, Reply, 12}, true, Names).indexOf("Word 1: 1234H"), -1);
    EXPECT_NE(
        explainHeard({R"( : 0 1 0 3 2 1 0 0 0 0 0 1 D A \x0D \x0A)"}, false, Names).indexOf("LRC DA, good"),
        -1);
}

}  // namespace
}  // namespace kelvane

#include "drive/drive_registers.h"

#include <gtest/gtest.h>

#include <QString>
#include <functional>
#include <string>

#include "drive/drive_texts.h"

namespace kelvane::drive {
namespace {

// Sends a command text ("FF0321100003") and gives the reply as text.
std::string ask(PracticeDrive& drive, const char* command) {
    return drive.answer(QByteArray::fromHex(command)).toHex().toUpper().toStdString();
}

std::string readCommand(int reg, int count) {
    return QString::asprintf("FF03%04X%04X", reg, count).toStdString();
}

std::vector<int> words(PracticeDrive& drive, int reg, int count) {
    const QByteArray reply = drive.answer(QByteArray::fromHex(readCommand(reg, count).c_str()));
    std::vector<int> result;
    for (qsizetype i = 3; i + 1 < reply.size(); i += 2)
        result.push_back(uint8_t(reply[i]) << 8 | uint8_t(reply[i + 1]));
    return result;
}

QByteArray text(PracticeDrive& drive, int reg, int count) {
    return drive.answer(QByteArray::fromHex(readCommand(reg, count).c_str())).mid(3);
}

void pass(PracticeDrive& drive, double seconds) { drive.advanceUs(qint64(seconds * 1e6)); }

class EachDrive : public testing::TestWithParam<Family> {
   protected:
    const FamilyData& data = familyData(GetParam());
    const FamilyTraits& traits = traitsOf(GetParam());
    PracticeDrive drive{data};
    int groups = int(data.groups.size()) - 1;

    // Calls with the register and the row of every parameter.
    void eachRow(const std::function<void(int, const ParamRow&)>& visit) const {
        for (size_t group = 0; group < data.groups.size(); ++group)
            for (size_t number = 0; number < data.groups[group].rows.size(); ++number)
                visit(int(group << 8 | number), data.groups[group].rows[number]);
    }
    // 0 or the exception that refuses the write.
    int write(int reg, int value) {
        const std::string command = QString::asprintf("FF06%04X%04X", reg, value & 0xFFFF).toStdString();
        const std::string reply = ask(drive, command.c_str());
        if (reply == command) return 0;
        return reply.starts_with("FF86") ? std::stoi(reply.substr(4), nullptr, 16) : -1;
    }
};
INSTANTIATE_TEST_SUITE_P(Families, EachDrive, testing::ValuesIn(AllFamilies),
                         [](const auto& drive) { return std::string(familyName(drive.param)); });

// Values, limits, defaults and names are compared where the tool reads the whole table.
TEST_P(EachDrive, GivesAttributeAndUnitOfEveryRecord) {
    const bool hazel = GetParam() == Family::Hazel;
    eachRow([&](int reg, const ParamRow& row) {
        SCOPED_TRACE(reg);
        const auto record = words(drive, reg, hazel ? 4 : 15);
        ASSERT_EQ(record.size(), hazel ? 4u : 15u);
        EXPECT_EQ(bool(record[3] & 2), bool(row.flags & RunSet));
        EXPECT_EQ(bool(record[3] & 8), bool(row.flags & ReadOnly));
        EXPECT_EQ(bool(record[3] & 128), bool(row.flags & Signed));
        EXPECT_EQ(GetParam() == Family::Aspen ? (record[3] & 1) * 2 : record[3] >> 8 & 3, row.dot);
        EXPECT_EQ(words(drive, reg, 1), std::vector<int>{record[0]});
        EXPECT_EQ(text(drive, reg, 15).mid(26).trimmed().toStdString(), hazel ? "" : row.unit);
    });
    EXPECT_EQ(ask(drive, readCommand((groups + 1) << 8 | (groups + 1), 1).c_str()), "FF8302");
}

TEST_P(EachDrive, ShowsARunInItsStatusBlock) {
    const auto items = traits.items.size();
    const auto state = [&] {
        const bool elsewhere = GetParam() == Family::Rowan || GetParam() == Family::Larch;
        return words(drive, elsewhere ? 0x2119 : 0x2101, 1).at(0);
    };
    EXPECT_EQ(state() & 0x1F, 0);
    EXPECT_EQ(state() & 0x0720, 0x0520);
    EXPECT_EQ(ask(drive, "FF0620011388"), "FF0620011388");
    EXPECT_EQ(ask(drive, "FF0620000002"), "FF0620000002");
    pass(drive, 1);
    EXPECT_EQ(state() & 0x1F, 3);
    pass(drive, 1000);
    const auto block = words(drive, 0x2100, int(items) + 2);
    ASSERT_EQ(block.size(), items + 2);
    EXPECT_EQ(block[0], 0);
    EXPECT_EQ(block[2], 5000);
    EXPECT_EQ(block[3], 5000);
    EXPECT_GT(block[4], 0);
    EXPECT_EQ(ask(drive, "FF0620000030"), "FF0620000030");
    pass(drive, 0.01);
    EXPECT_EQ(state() & 0x1F, 0b01011);
    pass(drive, 1000);
    EXPECT_EQ(state() & 0x1F, 0b11011);
    EXPECT_EQ(ask(drive, "FF0620000001"), "FF0620000001");
    EXPECT_EQ(state() & 3, 1);
    pass(drive, 1000);
    EXPECT_EQ(state() & 3, 0);
    EXPECT_EQ(ask(drive, "FF0620000003"), "FF0620000003");
    EXPECT_EQ(state() & 4, 4);
}

TEST_P(EachDrive, JudgesWrites) {
    int stopFirst = -1;
    bool sawReadOnly = false;
    eachRow([&](int reg, const ParamRow& row) {
        SCOPED_TRACE(reg);
        if (row.flags & ReadOnly) {
            sawReadOnly = true;
            EXPECT_EQ(write(reg, row.value), 4);
            return;
        }
        EXPECT_EQ(write(reg, row.defaultValue), 0);
        const bool hasRoomAbove = row.max < ((row.flags & Signed) ? 32767 : 65535);
        EXPECT_TRUE(!hasRoomAbove || write(reg, row.max + 1) == 3);
        if (!(row.flags & RunSet)) stopFirst = reg;
    });
    EXPECT_TRUE(sawReadOnly);
    const int before = words(drive, stopFirst, 1).at(0);
    ask(drive, "FF0620010064");
    ask(drive, "FF0620000002");
    EXPECT_EQ(write(stopFirst, before), 6) << "not while it runs";
    EXPECT_EQ(write(0x2200, 1), 2);
    EXPECT_EQ(write(0x2100, 1), 4);
}

TEST_P(EachDrive, GivesTextsOfFaultsAndExceptions) {
    drive.motor().injectFault(1);
    EXPECT_EQ(words(drive, 0x2100, 1), std::vector<int>{1});
    const bool hazel = GetParam() == Family::Hazel;
    EXPECT_EQ(text(drive, 0x3201, 10).toStdString(), hazel ? "" : "Over current    oc  ");
    for (int code = 0; code < 256; ++code) {
        EXPECT_TRUE(hazel || text(drive, 0x3200 | code, 10).size() == 20) << code;
        EXPECT_EQ(text(drive, 0x3300 | code, 8).size(), 16) << code;
        EXPECT_EQ(text(drive, 0x3300 | code, 10).size(), 20) << code;
    }
    ask(drive, "FF0620000002");
    EXPECT_FALSE(drive.motor().running());
    EXPECT_EQ(ask(drive, "FF0620020002"), "FF0620020002");
    EXPECT_EQ(words(drive, 0x2100, 1), std::vector<int>{0});
    ask(drive, "FF0620020001");
    EXPECT_EQ(words(drive, 0x2100, 1), std::vector<int>{6});
}

struct Tuning {
    Family family;
    const char* command;  // starts the turning mode
    int result;
    int shift;
    int tuned;
};
class TunedDrive : public testing::TestWithParam<Tuning> {};
INSTANTIATE_TEST_SUITE_P(Families, TunedDrive,
                         testing::Values(Tuning{Family::Rowan, "FF0600670002", 0x2118, 8, 0x0068},
                                         Tuning{Family::Larch, "FF0607050002", 0x2304, 0, 0x0706},
                                         Tuning{Family::Tilia, "FF0605000001", 0x2118, 0, 0x0506},
                                         Tuning{Family::Willow, "FF0607040002", 0x2118, 8, 0x0705}),
                         [](const auto& tuning) { return std::string(familyName(tuning.param.family)); });

TEST_P(TunedDrive, TunesStopsByItselfAndTellsTheResult) {
    const Tuning& t = GetParam();
    PracticeDrive drive(familyData(t.family));
    const auto running = [&] { return (words(drive, 0x2119, 4).at(0) & 3) != 0; };
    const int before = words(drive, t.tuned, 1).at(0);
    EXPECT_EQ(ask(drive, t.command), t.command);
    EXPECT_FALSE(running());
    ask(drive, "FF0620000002");
    pass(drive, 4.9);
    EXPECT_TRUE(running());
    EXPECT_GT(words(drive, 0x2119, 4).at(3), 0);
    pass(drive, 100);
    EXPECT_FALSE(running());
    EXPECT_EQ(words(drive, t.result, 1).at(0), 0);
    EXPECT_NE(words(drive, t.tuned, 1).at(0), before);

    drive.setNextTuneResult(TuneFault);
    ask(drive, t.command);
    ask(drive, "FF0620000002");
    pass(drive, 100);
    EXPECT_EQ(words(drive, t.result, 1).at(0), TuneFault << t.shift);
    EXPECT_EQ(text(drive, t.family == Family::Tilia ? 0x3228 : 0x3328, 10).toStdString(),
              "Auto tune failedAUE ");
    ask(drive, "FF0620020002");
    EXPECT_EQ(words(drive, t.result, 1).at(0), 0);
}

TEST(PracticeDrive, KeepsAnOsierCodeOfHazel) {
    PracticeDrive drive(familyData(Family::Hazel), {.hazelTellsOsier = true});
    EXPECT_EQ(words(drive, 0x2110, 2), (std::vector<int>{0x0500, 10}));
}

TEST(PracticeDrive, KeepsTheSecondPlaceOfTheOsierPidGroup) {
    PracticeDrive drive(familyData(Family::Osier));
    EXPECT_EQ(text(drive, 0x1001, 15), text(drive, 0x0A01, 15));
    EXPECT_EQ(text(drive, 0x1001, 15).size(), 30);
}

TEST(PracticeDrive, SignedWordsOfTilia) {
    PracticeDrive drive(familyData(Family::Tilia));
    ask(drive, "FF0620010BB8");
    ask(drive, "FF0620000022");
    pass(drive, 100);
    EXPECT_EQ(words(drive, 0x210B, 1).at(0), uint16_t(-400));  // 40.0 % of torque in reverse
}

TEST(PracticeDrive, TripsAfterItsSecondsOfRunningAndOnDemand) {
    PracticeDrive drive(familyData(Family::Larch), {.tripSeconds = 30});
    drive.motor().setCommandHz(50);
    for (int round = 0; round < 2; ++round) {
        ask(drive, "FF0620000002");
        for (int i = 0; i < 29; ++i) pass(drive, 1);
        EXPECT_EQ(drive.word(0x2100), 0);
        pass(drive, 1.5);
        EXPECT_EQ(drive.word(0x2100), MotorOverload);
        EXPECT_EQ(drive.motor().outputHz(), 0);
        ask(drive, "FF0620020002");
        EXPECT_EQ(drive.word(0x2100), 0);
    }
    ask(drive, "FF0620020001");
    EXPECT_EQ(drive.word(0x2100), ExternalFault);
}

TEST(PracticeDrive, PlaysAKeypad) {
    PracticeDrive drive(familyData(Family::Larch), {.asKeypad = true});
    const int groups = words(drive, 0x2111, 1).at(0);
    EXPECT_EQ(groups, int(familyData(Family::Larch).groups.size()) - 1);
    EXPECT_EQ(words(drive, (groups + 1) << 8, 1).size(), 1u);
    EXPECT_EQ(words(drive, 0x0100, 1), std::vector<int>{familyData(Family::Larch).groups[1].rows[0].value});
    EXPECT_EQ(ask(drive, "FF030100000F"), "FF8302");
    EXPECT_EQ(ask(drive, "FF0620000002"), "FF8601");
}

TEST(PracticeDrive, RefusesWhatItDoesNotKnowAndHearsItsAddresses) {
    PracticeDrive drive(familyData(Family::Larch), {.address = 7, .tellsTexts = false});
    EXPECT_EQ(ask(drive, "FF0421000001"), "FF8401");
    EXPECT_EQ(ask(drive, "FF0321000000"), "FF8303");
    EXPECT_EQ(ask(drive, "FF032100007D"), "FF8302");
    EXPECT_EQ(ask(drive, "FF03FFFF007D"), "FF8302");
    EXPECT_EQ(ask(drive, "FF060001"), "FF8603");  // a command without a register
    EXPECT_EQ(ask(drive, "FF0332010008"), "FF8302");
    EXPECT_EQ(ask(drive, "FF"), "");
    EXPECT_EQ(ask(drive, ""), "");
    EXPECT_EQ(ask(drive, "010321100001"), "");
    EXPECT_EQ(ask(drive, "070321100001"), "0703020200");
    EXPECT_EQ(ask(drive, "000620010064"), "");
    EXPECT_EQ(words(drive, 0x2102, 1), std::vector<int>{100});
    EXPECT_EQ(ask(drive, "FF0620000041"), "FF8603");
}

}  // namespace
}  // namespace kelvane::drive

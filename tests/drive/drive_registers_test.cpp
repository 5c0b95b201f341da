#include "drive/drive_registers.h"

#include <gtest/gtest.h>

#include <QString>
#include <functional>
#include <string>
#include <tuple>

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
    PracticeDrive drive{data};

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
TEST_P(EachDrive, GivesAttributeAndUnitOfEveryRecordUnderANameOfItsOwn) {
    const bool hazel = GetParam() == Family::Hazel;
    QStringList names;
    eachRow([&](int reg, const ParamRow& row) {
        SCOPED_TRACE(reg);
        names += QString::fromLatin1(row.name);
        EXPECT_EQ(names.back().simplified(), names.back());
        const auto record = words(drive, reg, hazel ? 4 : 15);
        ASSERT_EQ(record.size(), hazel ? 4u : 15u);
        EXPECT_EQ(bool(record[3] & 2), bool(row.flags & RunSet));
        EXPECT_EQ(bool(record[3] & 8), bool(row.flags & ReadOnly));
        EXPECT_EQ(bool(record[3] & 128), bool(row.flags & Signed));
        EXPECT_EQ(GetParam() == Family::Aspen ? (record[3] & 1) * 2 : record[3] >> 8 & 3, row.dot);
        EXPECT_EQ(words(drive, reg, 1), std::vector<int>{record[0]});
        EXPECT_EQ(text(drive, reg, 15).mid(26).trimmed().toStdString(), hazel ? "" : row.unit);
    });
    EXPECT_EQ(names.removeDuplicates(), 0);
    const int beyond = int(data.groups.size());
    EXPECT_EQ(ask(drive, readCommand(beyond << 8 | beyond, 1).c_str()), "FF8302");
}

TEST_P(EachDrive, JudgesWrites) {
    int stopFirst = -1;
    eachRow([&](int reg, const ParamRow& row) {
        SCOPED_TRACE(reg);
        if (row.flags & ReadOnly) {
            EXPECT_EQ(write(reg, row.value), 4);
            return;
        }
        EXPECT_EQ(write(reg, row.defaultValue), 0);
        const bool hasRoomAbove = row.max < ((row.flags & Signed) ? 32767 : 65535);
        EXPECT_TRUE(!hasRoomAbove || write(reg, row.max + 1) == 3);
        if (!(row.flags & RunSet)) stopFirst = reg;
    });
    const int before = words(drive, stopFirst, 1).at(0);
    ask(drive, "FF0620010064");
    ask(drive, "FF0620000002");
    EXPECT_EQ(write(stopFirst, before), 6) << "not while it runs";
    EXPECT_EQ(write(0x2200, 1), 2);
    EXPECT_EQ(write(0x2100, 1), 4);
}

TEST_P(EachDrive, GivesTextsOfFaultsAndExceptions) {
    ask(drive, "FF0620010BB8");
    ask(drive, "FF0620000002");
    pass(drive, 1);
    EXPECT_GT(drive.motor().outputHz(), 0);
    drive.motor().injectFault(1);
    EXPECT_EQ(drive.motor().outputHz(), 0);
    pass(drive, 1);
    EXPECT_EQ(drive.motor().outputHz(), 0) << "at rest, and stays there";
    EXPECT_EQ(drive.word(0x2100), 1);
    const bool hazel = GetParam() == Family::Hazel;
    EXPECT_EQ(text(drive, 0x3201, 10).toStdString(), hazel ? "" : "Over current    oc  ");
    for (int code = 0; code < 256; ++code) {
        EXPECT_TRUE(hazel || text(drive, 0x3200 | code, 10).size() == 20) << code;
        EXPECT_EQ(text(drive, 0x3300 | code, 10).size(), 20) << code;
    }
    ask(drive, "FF0620000002");
    EXPECT_FALSE(drive.motor().running());
    ask(drive, "FF0620020002");
    EXPECT_EQ(drive.word(0x2100), 0);
    ask(drive, "FF0620020001");
    EXPECT_EQ(drive.word(0x2100), ExternalFault);
}

// Its course, its results and their texts are seen from the window that tunes.
TEST(PracticeDrive, ATuningChangesWhatItMeasures) {
    for (const auto& [family, command, measured] : {std::tuple{Family::Rowan, "FF0600670002", 0x0068},
                                                    {Family::Larch, "FF0607050002", 0x0706},
                                                    {Family::Tilia, "FF0605000001", 0x0506},
                                                    {Family::Willow, "FF0607040002", 0x0705}}) {
        PracticeDrive drive(familyData(family));
        const int before = words(drive, measured, 1).at(0);
        ask(drive, command);
        EXPECT_FALSE(drive.motor().running()) << "not without a RUN";
        ask(drive, "FF0620000002");
        pass(drive, 100);
        EXPECT_NE(words(drive, measured, 1).at(0), before) << familyName(family);
    }
}

TEST(PracticeDrive, KeepsTheSecondPlaceOfTheOsierPidGroupAndTheSignsOfTilia) {
    PracticeDrive osier(familyData(Family::Osier));
    EXPECT_EQ(text(osier, 0x1001, 15), text(osier, 0x0A01, 15));
    EXPECT_EQ(text(osier, 0x1001, 15).size(), 30);
    PracticeDrive tilia(familyData(Family::Tilia));
    ask(tilia, "FF0620010BB8");
    ask(tilia, "FF0620000022");
    pass(tilia, 100);
    EXPECT_EQ(tilia.word(0x210B), uint16_t(-400));  // 40.0 % of torque in reverse
}

TEST(PracticeDrive, PlaysAKeypad) {
    PracticeDrive drive(familyData(Family::Larch), {.asKeypad = true});
    const auto groups = familyData(Family::Larch).groups;
    EXPECT_EQ(words(drive, 0x2111, 1), std::vector<int>{int(groups.size()) - 1});
    EXPECT_EQ(words(drive, int(groups.size()) << 8, 1).size(), 1u);
    EXPECT_EQ(words(drive, 0x0100, 1), std::vector<int>{groups[1].rows[0].value});
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

// Slots and families as a technician and a drive see them: registers, labels, lists, and a practice drive
// whose parameters take every choice that is offered and no other.

#include "quicksetup/family_setup.h"

#include <gmock/gmock.h>

#include "drive/parameter_data.h"
#include "link/number_text.h"
#include "quicksetup/quick_slots.h"

namespace kelvane {

namespace {

const FamilySetup& setupOf(Family family) { return *familySetup(static_cast<quint8>(family)); }

QString label(Family family, int slot) { return slotLabel(setupOf(family), slot); }

QString item(Family family, int slot, size_t index) {
    const std::string_view text = slotChoices(setupOf(family), slot)[index];
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

const drive::ParamRow* practiceRow(Family family, int slot) {
    const int address = BaseStrToInt(slotAddress(slot, family), 16);
    const auto& groups = drive::familyData(family).groups;
    if (slotAddress(slot, family).isEmpty()) return nullptr;
    return &groups[static_cast<size_t>(address >> 8)].rows[static_cast<size_t>(address & 0xFF)];
}

// A family's row: registers of slots 1 to 40, items of the lists of ListSlots, unit of the motor's currents.
struct FamilyRow {
    Family family;
    const char* registers;
    std::array<size_t, 9> items;
    const char* currentUnit;
    const char* terminals = "MI0 MI1 MI2 MI3 MI4 MI5 GND";
};
constexpr std::array ListSlots{1, 2, 4, 22, 23, 24, 25, 33, 34};
constexpr FamilyRow Rows[] = {
    {Family::Rowan,
     "- 0040 0041 - 0034 0035 - 0003 0004 0005 0006 0007 0008 0009 - - - 0024 0025 000A 000B 0000 "
     "0001 0002 002D 002E - - - - - - 0026 0027 0028 0029 002A - - -",
     {0, 11, 0, 5, 5, 2, 25, 3, 33},
     "A"},
    {Family::Aspen,
     "0003 0004 0005 - 0700 0701 - 0100 0101 0102 0103 0104 0105 0106 - - - 0107 0108 0109 010A 0200 "
     "0201 0202 0305 0306 - - - - - - 0404 0405 0406 0407 0408 - - -",
     {4, 5, 0, 6, 5, 2, 17, 22, 22},
     "%"},
    {Family::Larch,
     "0003 0004 0005 0009 0700 0701 0704 0100 0101 0102 0103 0104 0105 0106 - - - 0107 0108 0109 010A "
     "0200 0201 0202 0300 0301 0302 0303 - - - - 0404 0405 0406 0407 0408 0409 - -",
     {5, 15, 4, 7, 5, 4, 30, 37, 37},
     "%"},
    {Family::Hazel,
     "0003 0004 0005 - 0700 0701 - 0100 0101 0102 0103 0104 0105 0106 - - - 0107 0108 0109 010A 0200 "
     "0201 0202 0303 - - - - - - - 0404 0405 0406 - - - - -",
     {4, 5, 0, 5, 5, 2, 17, 21, 21},
     "%",
     "M0 M1 M2 M3   GND"},
    {Family::Tilia,
     "0003 0004 0005 000A 0501 0505 0504 0100 0101 0102 0103 0104 0105 0106 0107 0108 0109 010A 010B "
     "010C 010D 0014 0015 0016 020B 020C 020D 020E - - - - 0201 0202 0203 0204 0205 0206 - -",
     {4, 24, 4, 6, 5, 2, 41, 44, 44},
     "A"},
    {Family::Osier,
     "0208 0209 020A - 0702 0703 - 0100 0101 0102 0103 0104 0105 0106 - - - 0107 0108 0109 010A 0200 "
     "0201 0202 0300 0301 0302 0303 0304 0305 0306 0307 0400 0401 0402 0403 0404 0405 0406 0407",
     {5, 5, 0, 6, 5, 4, 38, 34, 34},
     "A"},
    {Family::Willow,
     "0003 0004 0005 000A 0700 0701 - 0100 0101 0102 0103 0104 0105 0106 - - - 0107 0108 0109 010A "
     "0200 0201 0202 0300 0301 - - - - - - 0404 0405 0406 0407 0408 - - -",
     {6, 12, 2, 5, 5, 4, 22, 3, 25},
     "A",
     "MI1 MI2 MI3 MI4 MI5 MI6 DCM"},
    {Family::Yarrow,
     "0003 0004 0005 000A 0700 0701 - 0100 0101 0102 0103 0104 0105 0106 - - - 0107 0108 0109 010A "
     "0200 0201 0202 0300 0301 - - - - - - 0404 0405 0406 0407 0408 - - -",
     {5, 12, 2, 5, 5, 4, 22, 3, 23},
     "A",
     "MI1 MI2 MI3 MI4 MI5 MI6 DCM"},
    {Family::Sorrel,
     "0003 0004 0005 0009 0501 0505 0504 0100 0101 0102 0103 0104 0105 0106 0107 0108 0109 010A 010B "
     "010C 010D 000E 000F - 020B 020C 020D 020E 020F 0210 - - 0201 0202 0203 0204 0205 0206 0207 0208",
     {4, 29, 4, 3, 3, 0, 43, 44, 44},
     "A"},
};

TEST(QuickSlots, HoldWhatTheFamilyHas) {
    for (const FamilyRow& row : Rows) {
        SCOPED_TRACE(familyName(row.family));
        const FamilySetup& setup = setupOf(row.family);
        const QStringList registers = QString::fromLatin1(row.registers).split(' ');
        ASSERT_EQ(registers.size(), SlotCount);
        for (int slot = 1; slot <= SlotCount; ++slot) {
            const QString wanted = registers[slot - 1] == "-" ? QString() : registers[slot - 1];
            EXPECT_EQ(slotAddress(slot, row.family), wanted) << slot;
            EXPECT_EQ(label(row.family, slot).isEmpty(), wanted.isEmpty()) << slot;
            if (slot > 25 && slot != 33) {
                const int like = slot < 33 ? 25 : 34;
                EXPECT_EQ(slotChoices(setup, slot).data(), slotChoices(setup, like).data()) << slot;
            }
        }
        for (size_t i = 0; i < ListSlots.size(); ++i)
            EXPECT_EQ(slotChoices(setup, ListSlots[i]).size(), row.items[i]) << ListSlots[i];
        EXPECT_EQ(slotUnit(setup, 5), row.currentUnit);
        EXPECT_EQ(slotUnit(setup, 19), row.family == Family::Rowan ? "Hz" : "%");
        QStringList terminals;
        for (const char* name : setup.terminals) terminals += name;
        EXPECT_EQ(terminals.join(' '), row.terminals);
        EXPECT_EQ(setup.twoMidPoints, row.family == Family::Tilia);
    }
    EXPECT_EQ(familySetup(7), nullptr);
    EXPECT_EQ(familySetup(static_cast<quint8>(Family::Keypad)), nullptr);
    QStringList boxes;
    for (int slot = 1; slot <= SlotCount; ++slot)
        if (slotControlName(slot).endsWith("ComboBox")) boxes += QString::number(slot);
    EXPECT_EQ(boxes.join(' '), "1 2 4 22 23 24 25 26 27 28 29 30 31 32 33 34 35 36 37 38 39 40");
}

TEST(QuickSlots, LabelsBearTheNumberOfTheDrivesManual) {
    EXPECT_EQ(label(Family::Larch, 4), "00-09  Control Methods");
    EXPECT_EQ(label(Family::Rowan, 2), "Pr.64  Content of User Defined Unit");
    EXPECT_EQ(label(Family::Osier, 3), "02-10  User Defined Coefficient K");
    EXPECT_EQ(label(Family::Sorrel, 30), "02-16  Multi-Function Output Terminal (MO5)");
    EXPECT_EQ(label(Family::Tilia, 17), "01-09  Start Frequency");
    for (const Family family : {Family::Rowan, Family::Willow, Family::Yarrow})
        EXPECT_TRUE(label(family, 33).endsWith("  2-wire/3-wire Operation Mode"));
}

TEST(Choices, KeepsTheExchangedNumbersOfTheOldFrequencySources) {
    EXPECT_EQ(item(Family::Rowan, 22, 3), "04: Master Frequency operated by RS-485 communication port");
    EXPECT_TRUE(item(Family::Rowan, 22, 4).startsWith("03: "));
}

TEST(Choices, LarchStandsAsItsManualPrintsIt) {
    EXPECT_EQ(item(Family::Larch, 2, 5), "05: Output power facotr angle (n)");
    EXPECT_EQ(item(Family::Larch, 22, 6),
              "06: Combined use of master and auxiliary frequency command (See Pr.02-10 to 02-12)");
    EXPECT_EQ(item(Family::Larch, 24, 1), "01: STOP:coast to stop; E.F.:coast to stop)");
    EXPECT_EQ(item(Family::Larch, 28, 29), "29: Brake control (Desired frequency attained 3)");
    EXPECT_EQ(item(Family::Larch, 38, 36), "36: Output shutoff stop (NC)");
}

// The practice drive takes every choice that is offered and refuses the next; what it holds when it is
// switched on is one of them.
TEST(Choices, AgreeWithThePracticeDrive) {
    for (const Family family : AllFamilies) {
        for (int slot = 1; slot <= SlotCount; ++slot) {
            const drive::ParamRow* row = practiceRow(family, slot);
            if (!row) continue;
            SCOPED_TRACE(testing::Message() << familyName(family) << " slot " << slot);
            if (quickSlot(slot).control != SlotControl::List) {
                EXPECT_EQ(std::string(row->unit), slotUnit(setupOf(family), slot).toStdString());
                continue;
            }
            EXPECT_EQ(row->min, 0);
            EXPECT_EQ(row->max + 1, static_cast<int>(slotChoices(setupOf(family), slot).size()));
        }
        // A drive that is commanded over its line has its sources there, and tells a fault by its first
        // relay.
        EXPECT_TRUE(item(family, 23, size_t(practiceRow(family, 23)->value)).contains("RS-485"))
            << familyName(family);
        EXPECT_TRUE(item(family, 25, size_t(practiceRow(family, 25)->value)).contains("Fault"))
            << familyName(family);
    }
}

}  // namespace

}  // namespace kelvane

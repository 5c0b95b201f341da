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

TEST(QuickSlots, EveryUsedSlotHasARegisterAndALabelAndNoOtherHas) {
    const std::array<int, 9> used{25, 26, 31, 23, 34, 35, 27, 27, 37};
    for (size_t f = 0; f < AllFamilies.size(); ++f) {
        int count = 0;
        for (int slot = 1; slot <= SlotCount; ++slot) {
            const QString address = slotAddress(slot, AllFamilies[f]);
            EXPECT_EQ(label(AllFamilies[f], slot).isEmpty(), address.isEmpty()) << slot;
            count += !address.isEmpty();
        }
        EXPECT_EQ(count, used[f]) << familyName(AllFamilies[f]);
    }
    EXPECT_EQ(familySetup(7), nullptr);
    EXPECT_EQ(familySetup(static_cast<quint8>(Family::Keypad)), nullptr);
    EXPECT_EQ(slotControlName(4), "S1para4ComboBox");
    EXPECT_EQ(slotControlName(7), "S1para7LabeledEdit");
    EXPECT_EQ(slotControlName(40), "S4Inpara8ComboBox");
}

TEST(QuickSlots, LabelsBearTheNumberOfTheDrivesManual) {
    EXPECT_EQ(label(Family::Larch, 4), "00-09  Control Methods");
    EXPECT_EQ(label(Family::Larch, 21), "01-10  Deceleration Time1 (Tdecel 1)");
    EXPECT_EQ(label(Family::Larch, 25), "03-00  Multi-Function Output Relay (RA, RB, RC)");
    EXPECT_EQ(label(Family::Larch, 38), "04-09  Multi-Function Input Terminal (MI6)");
    EXPECT_EQ(label(Family::Rowan, 8), "Pr.03  Maximum Output Frequency");
    EXPECT_EQ(label(Family::Rowan, 2), "Pr.64  Content of User Defined Unit");
    EXPECT_EQ(label(Family::Osier, 3), "02-10  User Defined Coefficient K");
    EXPECT_EQ(label(Family::Sorrel, 30), "02-16  Multi-Function Output Terminal (MO5)");
    EXPECT_EQ(label(Family::Tilia, 17), "01-09  Start Frequency");
    for (const Family family : {Family::Rowan, Family::Willow, Family::Yarrow})
        EXPECT_TRUE(label(family, 33).endsWith("  2-wire/3-wire Operation Mode"));
}

TEST(QuickSlots, UnitsAndTerminals) {
    const std::array<QString, 9> current{"A", "%", "%", "%", "A", "A", "A", "A", "A"};
    for (size_t f = 0; f < AllFamilies.size(); ++f) {
        EXPECT_EQ(slotUnit(setupOf(AllFamilies[f]), 5), current[f]);
        EXPECT_EQ(slotUnit(setupOf(AllFamilies[f]), 19), AllFamilies[f] == Family::Rowan ? "Hz" : "%");
    }
    EXPECT_STREQ(setupOf(Family::Larch).terminals[0], "MI0");
    EXPECT_STREQ(setupOf(Family::Hazel).terminals[4], "");
    EXPECT_STREQ(setupOf(Family::Yarrow).terminals[6], "DCM");
    EXPECT_TRUE(setupOf(Family::Tilia).twoMidPoints);
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

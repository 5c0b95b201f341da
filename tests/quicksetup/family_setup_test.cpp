// Slots and families as a technician and a drive see them: registers, labels, lists, and a practice drive
// whose parameters take every choice that is offered and no other.

#include "quicksetup/family_setup.h"

#include <gtest/gtest.h>

#include <QRegularExpression>
#include <map>

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

// By slot: what all drives' own names of that parameter have in common.
const QStringList DrivesNames =
    QStringLiteral(
        "isplay Display|User K$ Control Amps|[Cc]urr No-[Ll]oad Poles Max.Output.Freq Base|Max.Volt "
        "Output.Volt|Rated.Volt Mid.*Freq Mid.*Volt Min.*Freq Min.*Volt Mid.Freq.*2 Mid.Volt.*2 Start Up Low "
        "Accel.Time.1 Decel.Time.1 Freq.*Source|Source.*Freq (Run|Oper).*Source|Source.Oper Stop 2$|Relay "
        "1$ 2$ 3$ 4$ 5$ 6$ 7$ 1$|Wire 2$ 3$ 4$ 5$ 6$ 7$ 8$")
        .split(' ');

// The practice drive takes every choice that is offered and refuses the next; what it holds when it is
// switched on is one of them.
TEST(QuickSlots, AgreeWithThePracticeDrive) {
    const std::map<Family, int> slotsOf{{Family::Rowan, 25},  {Family::Aspen, 26},  {Family::Larch, 31},
                                        {Family::Hazel, 23},  {Family::Tilia, 34},  {Family::Osier, 35},
                                        {Family::Willow, 27}, {Family::Yarrow, 27}, {Family::Sorrel, 37}};
    for (const Family family : AllFamilies) {
        int used = 0;
        for (int slot = 1; slot <= SlotCount; ++slot) {
            SCOPED_TRACE(testing::Message() << familyName(family) << " slot " << slot);
            const drive::ParamRow* row = practiceRow(family, slot);
            EXPECT_EQ(label(family, slot).isEmpty(), !row);
            if (!row) continue;
            ++used;
            const QString name = QString::fromStdString(std::string(row->name));
            EXPECT_TRUE(name.contains(QRegularExpression(DrivesNames[slot - 1]))) << name.toStdString();
            if (quickSlot(slot).control != SlotControl::List) {
                EXPECT_EQ(std::string(row->unit), slotUnit(setupOf(family), slot).toStdString());
                continue;
            }
            EXPECT_EQ(row->min, 0);
            EXPECT_EQ(row->max + 1, static_cast<int>(slotChoices(setupOf(family), slot).size()));
        }
        EXPECT_EQ(used, slotsOf.at(family)) << familyName(family);
        // A drive that is commanded over its line has its sources there, and tells a fault by its first
        // relay.
        EXPECT_TRUE(item(family, 23, size_t(practiceRow(family, 23)->value)).contains("RS-485"))
            << familyName(family);
        EXPECT_TRUE(item(family, 25, size_t(practiceRow(family, 25)->value)).contains("Fault"))
            << familyName(family);
        EXPECT_EQ(setupOf(family).twoMidPoints, family == Family::Tilia);
    }
    EXPECT_EQ(slotAddress(8, Family::Rowan) + slotAddress(40, Family::Osier), "00030407");
    EXPECT_EQ(familySetup(7), nullptr);
    EXPECT_EQ(familySetup(static_cast<quint8>(Family::Keypad)), nullptr);
}

TEST(QuickSlots, LabelsBearTheNumberOfTheDrivesManual) {
    EXPECT_EQ(label(Family::Rowan, 2), "Pr.64  Content of User Defined Unit");
    EXPECT_EQ(label(Family::Osier, 3), "02-10  User Defined Coefficient K");
    EXPECT_EQ(label(Family::Sorrel, 30), "02-16  Multi-Function Output Terminal (MO5)");
    for (const Family family : {Family::Rowan, Family::Willow, Family::Yarrow})
        EXPECT_TRUE(label(family, 33).endsWith("  2-wire/3-wire Operation Mode"));
}

TEST(Choices, KeepsExchangedNumbersAndWhatTheManualsPrint) {
    EXPECT_EQ(item(Family::Rowan, 22, 3), "04: Master Frequency operated by RS-485 communication port");
    EXPECT_TRUE(item(Family::Rowan, 22, 4).startsWith("03: "));
    EXPECT_EQ(item(Family::Larch, 2, 5), "05: Output power facotr angle (n)");
    EXPECT_EQ(item(Family::Larch, 24, 1), "01: STOP:coast to stop; E.F.:coast to stop)");
}

}  // namespace

}  // namespace kelvane

// The slots' values: what the words of a read mean, what a project gives, and what a person's hand does to
// them.

#include "quicksetup/quick_setup.h"

#include <gtest/gtest.h>

#include "bench/link_bench.h"

namespace kelvane {

namespace {

constexpr int MaxFrequency = 8;
constexpr int Poles = 7;

struct SlotBench : SchedulerBench {
    QuickSetup quick{link, {person, lang}};

    explicit SlotBench(Family family = Family::Larch) { connectDrive(family); }
    void connectDrive(Family family, quint8 DriveIdCode = 0) {
        link.DriveStatus.DriveFamily = static_cast<quint8>(family);
        quick.Initial();
        link.DriveStatus.DriveIdCode = DriveIdCode;
        Q_EMIT link.statusDecoded();
    }
    QSlot& slot(int number) { return quick.Slot[static_cast<size_t>(number)]; }
    void take(int number, quint16 value, quint16 max, quint16 min, quint16 attribute) {
        quick.takeWords(number, {value, max, min, attribute}, true);
        quick.fillControls();
    }
    void type(int number, const QString& text) { quick.typeText(number, text); }
    void expectRefusal(const QString& why) {
        person.expectBox(QStringLiteral("Value is %1 !! Please check it ...").arg(why), "Error");
    }
};

TEST(QuickSetup, AReadGivesValueLimitsAndDecimals) {
    SlotBench b;
    b.take(MaxFrequency, 6000, 40000, 5000, 0x0200);
    EXPECT_EQ(b.slot(MaxFrequency).text, "60.00");
    EXPECT_EQ(b.quick.limitsText(MaxFrequency), "50.00 to 400.00 Hz");
    b.take(Poles, 4, 10, 2, 0x0200);
    EXPECT_EQ(b.slot(Poles).text, "4");
    b.take(25, 31, 29, 0, 0);
    EXPECT_EQ(b.slot(25).ItemIndex, -1);
    EXPECT_EQ(b.slot(25).SlotValue, 31) << "what no item stands for is written as it was read";
}

TEST(QuickSetup, FamiliesReadTheAttributeWordDifferently) {
    SlotBench tilia(Family::Tilia);
    tilia.take(MaxFrequency, 0xFFCE, 0x7FFF, 0x8000, 0x0180);
    EXPECT_EQ(tilia.slot(MaxFrequency).text, "-5.0");
    EXPECT_EQ(tilia.slot(MaxFrequency).SlotMin, -32768);
    tilia.quick.buildWriteCommands();
    EXPECT_EQ(tilia.slot(MaxFrequency).SlotWriteCommand, "FF060100FFCE");
    SlotBench sorrel(Family::Sorrel);
    sorrel.take(MaxFrequency, 0xFFCE, 0xFFFF, 0, 0x0180);
    EXPECT_EQ(sorrel.slot(MaxFrequency).text, "6548.6");
    SlotBench aspen(Family::Aspen);
    aspen.take(MaxFrequency, 6000, 40000, 5000, 0x0300);
    EXPECT_EQ(aspen.slot(MaxFrequency).SlotDecimals, 0);
    SlotBench osier(Family::Osier);
    osier.take(25, 8, 40000, 5000, 0x0200);
    EXPECT_EQ(osier.slot(25).SlotReadCommand, "FF0303000001");
    EXPECT_EQ(osier.slot(25).SlotMax, 0) << "the words behind the first are an earlier slot's";
}

TEST(QuickSetup, KeepsEnterWithoutLimitsAndLooksAtThemWhenTheEditIsLeft) {
    SlotBench b;
    b.take(MaxFrequency, 5000, 40000, 1000, 0x0200);
    const auto enter = [&](const QString& text) {
        b.type(MaxFrequency, text);
        b.quick.ProcessLabeledEditKeyPress(MaxFrequency);
        return b.slot(MaxFrequency).SlotValue;
    };
    EXPECT_EQ(enter("60"), 6000);
    EXPECT_EQ(b.slot(MaxFrequency).text, "60") << "only leaving it brings the places";
    EXPECT_EQ(enter("20.239"), 2023);
    EXPECT_EQ(enter(""), 0) << "an empty edit is 0 where there are places";
    EXPECT_EQ(enter("500"), 50000) << "kept: Enter looks at no limits";
    EXPECT_TRUE(b.quick.outsideLimits(MaxFrequency));
    enter("50");
    for (const char* text : {"400.00", "10", "12.3"}) {
        b.type(MaxFrequency, text);
        EXPECT_TRUE(b.quick.leaveEdit(MaxFrequency)) << text;
    }
    EXPECT_EQ(b.slot(MaxFrequency).text, "12.30");
    const auto refused = [&](const QString& text, const QString& why) {
        b.type(MaxFrequency, text);
        b.expectRefusal(why);
        EXPECT_FALSE(b.quick.leaveEdit(MaxFrequency));
        EXPECT_EQ(b.slot(MaxFrequency).text, "12.30");
        EXPECT_EQ(b.slot(MaxFrequency).SlotValue, 1230);
    };
    refused("400.01", "too large");
    refused("9.99", "too small");
    refused("1-2", "not Legal");
    refused("60,5", "not Legal");
    b.slot(MaxFrequency).SlotMin = 5000;
    b.slot(MaxFrequency).SlotMax = 4000;
    refused("45", "too small");  // the minimum is looked at first
}

TEST(QuickSetup, PolesAreStoredWhileTheyAreTypedAndComeBackWhenRefused) {
    SlotBench b;
    b.take(Poles, 4, 10, 2, 0);
    b.type(Poles, "66");
    EXPECT_EQ(b.slot(Poles).SlotValue, 66);
    b.expectRefusal("too large");
    EXPECT_FALSE(b.quick.leaveEdit(Poles));
    EXPECT_EQ(b.slot(Poles).text, "4");
    b.type(Poles, "");
    b.expectRefusal("not Legal");
    b.quick.ProcessLabeledEditKeyPress(Poles);
    EXPECT_EQ(b.slot(Poles).SlotValue, 4);
}

std::array<QString, SlotCount + 1> projectOf(const QString& box, const QString& edit) {
    std::array<QString, SlotCount + 1> texts;
    for (int slot = 1; slot <= SlotCount; ++slot)
        texts[static_cast<size_t>(slot)] = quickSlot(slot).control == SlotControl::List ? box : edit;
    return texts;
}

TEST(QuickSetup, AProjectGivesValuesAndTextsAsTheyStand) {
    SlotBench b;
    b.slot(22).SlotValue = 3;
    b.take(MaxFrequency, 5000, 40000, 1000, 0x0200);
    auto texts = projectOf("2", "60.0");
    texts[22] = "-1";
    texts[9].clear();
    b.quick.takeProject(texts);
    b.take(MaxFrequency, 5000, 40000, 1000, 0x0200);
    EXPECT_TRUE(b.quick.LoadParaFromFile());
    EXPECT_EQ(b.slot(1).ItemIndex, 2);
    EXPECT_EQ(b.slot(MaxFrequency).text, "60.0");
    EXPECT_EQ(b.slot(MaxFrequency).SlotValue, 600)
        << "the point is taken away, whatever places the drive has";
    EXPECT_EQ(b.slot(22).SlotValue, 3) << "a box in which nothing was chosen keeps its value";
    EXPECT_EQ(b.slot(9).SlotValue, 0);
    EXPECT_EQ(b.slot(9).origin, ValueOrigin::EmptyProject);
    b.quick.buildWriteCommands();
    EXPECT_EQ(b.slot(1).SlotWriteCommand, "FF0600030002");
}

TEST(QuickSetup, KeepsComplainingOverAProjectThatNoReadCameBefore) {
    SlotBench b;
    b.quick.takeProject(projectOf("0", "60.00"));
    b.quick.LoadParaFromFile();
    b.expectRefusal("too large");
    EXPECT_FALSE(b.quick.leaveEdit(MaxFrequency));
    EXPECT_EQ(b.slot(MaxFrequency).text, "6000");
    EXPECT_EQ(b.slot(MaxFrequency).SlotValue, 6000);
}

TEST(QuickSetup, ValuesBelongToOneDrive) {
    SlotBench b;
    b.quick.takeProject(projectOf("1", "2"));
    b.connectDrive(Family::Larch, 0);
    EXPECT_EQ(b.slot(1).SlotFileValue, "1") << "the same drive again, as after a project opened off line";
    b.connectDrive(Family::Larch, 33);
    EXPECT_EQ(b.slot(1).SlotFileValue, "") << "another model";
    b.take(1, 3, 4, 0, 0);
    b.connectDrive(Family::Rowan, 33);
    EXPECT_EQ(b.slot(1).SlotValue, 0) << "another family";
    EXPECT_EQ(b.slot(1).SlotReadCommand, "cmdSkip");
    EXPECT_EQ(b.slot(2).SlotReadCommand, "FF0300400004");
    b.quick.chooseItem(22, 3);
    b.quick.buildWriteCommands();
    EXPECT_EQ(b.slot(22).SlotWriteCommand, "FF0600000003") << "its position, not its number";
    b.link.DriveStatus.DriveFamily = 7;
    b.quick.Initial();
    EXPECT_EQ(b.quick.family()->DriveFamily, Family::Rowan);
}

}  // namespace

}  // namespace kelvane

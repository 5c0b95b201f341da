#include "catalogue/model_tables.h"

#include <gtest/gtest.h>

#include "base/drive_family.h"
#include "link/number_text.h"

namespace kelvane {
namespace {

struct Plate {
    Family family;
    quint8 DriveIdCode;
    const char* RatedVoltage;
    const char* RatedCurrent;
    const char* Power;
};

void expectPlates(std::initializer_list<Plate> plates) {
    for (const Plate& plate : plates) {
        SCOPED_TRACE(testing::Message() << familyName(plate.family) << " " << int(plate.DriveIdCode));
        const ModelIdentity model = modelIdentity(static_cast<quint8>(plate.family), plate.DriveIdCode);
        EXPECT_EQ(model.RatedVoltageVrLabel.toStdString(), plate.RatedVoltage);
        EXPECT_EQ(model.RatedCurrentVrLabel.toStdString(), plate.RatedCurrent);
        EXPECT_EQ(model.HPVrLabel.toStdString(), plate.Power);
    }
}

TEST(ModelTables, TellThePlatesAroundTheirGaps) {
    expectPlates({{Family::Rowan, 12, "---", "---", "---"},
                  {Family::Rowan, 20, "115V", "1.6A", "0.2 ( 0.25 )"},
                  {Family::Rowan, 23, "", "", ""},
                  {Family::Rowan, 55, "575V", "12.2A", "7.5 ( 10 )"},
                  {Family::Larch, 99, "", "", ""},
                  {Family::Willow, 10, "", "", ""},  // small families end at 2.2 kW on 115 V
                  {Family::Yarrow, 11, "460V", "8.2A", "3.7 ( 5 )"},
                  {Family::Yarrow, 12, "", "", ""},
                  {Family::Larch, 114, "575V", "100A", "75 ( 100 )"}});
}

TEST(ModelTables, KeepsTheFlawsOfTheProductData) {
    expectPlates({{Family::Rowan, 9, "460V", "8.2A", "3.75 ( 5 )"},
                  {Family::Aspen, 0, "115V/230V", "1.6A", "0.56 ( 1/4 )"},
                  {Family::Larch, 9, "460V", "5.0A", "2.2 ( 2 )"},
                  {Family::Willow, 1, "460V", "---", "Reserve"},
                  {Family::Sorrel, 19, "460V", " 27 A", "15 ( 20 )"}});
}

TEST(ModelTables, NeverReadOutside) {
    for (int DriveFamily = 0; DriveFamily < 256; ++DriveFamily) {
        const auto identity = [&](int code) {
            return modelIdentity(static_cast<quint8>(DriveFamily), static_cast<quint8>(code));
        };
        EXPECT_EQ(identity(0) != ModelIdentity{}, *familyName(static_cast<quint8>(DriveFamily)) != '\0');
        for (int code = 140; code < 256; ++code) EXPECT_EQ(identity(code), ModelIdentity{});
    }
}

TEST(ModelTables, TakeTheSeparatorOfTheMachineWhenRead) {
    DecimalSep = QStringLiteral(",");
    const ModelIdentity model = modelIdentity(0, 24);
    DecimalSep = QStringLiteral(".");
    EXPECT_EQ(model.RatedCurrentVrLabel, QStringLiteral("4,2A"));
    EXPECT_EQ(model.HPVrLabel, QStringLiteral("0,75 ( 1,0 )"));
}

}  // namespace
}  // namespace kelvane

#include "catalogue/model_tables.h"

#include <gtest/gtest.h>

#include "base/drive_family.h"
#include "link/number_text.h"

namespace kelvane {
namespace {

TEST(ModelTables, KeepTheFlawsOfTheProductDataAndTheirGaps) {
    const auto plate = [](Family family, int code) {
        const ModelIdentity model = modelIdentity(static_cast<quint8>(family), static_cast<quint8>(code));
        return QString(model.RatedVoltageVrLabel % "|" % model.RatedCurrentVrLabel % "|" % model.HPVrLabel)
            .toStdString();
    };
    EXPECT_EQ(plate(Family::Rowan, 12), "---|---|---");
    EXPECT_EQ(plate(Family::Rowan, 23), "||");
    EXPECT_EQ(plate(Family::Aspen, 0), "115V/230V|1.6A|0.56 ( 1/4 )");
    EXPECT_EQ(plate(Family::Larch, 9), "460V|5.0A|2.2 ( 2 )");
    EXPECT_EQ(plate(Family::Larch, 114), "575V|100A|75 ( 100 )");  // behind its gap
    EXPECT_EQ(plate(Family::Willow, 1), "460V|---|Reserve");
    EXPECT_EQ(plate(Family::Yarrow, 12), "||");
    EXPECT_EQ(plate(Family::Sorrel, 19), "460V| 27 A|15 ( 20 )");
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

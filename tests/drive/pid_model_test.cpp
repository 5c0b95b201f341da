// The control loop of a practice drive: its registers decide how the motor gets to its set point.
#include "drive/pid_model.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "drive/drive_registers.h"

namespace kelvane::drive {
namespace {

TEST(PidModel, FollowsItsSettings) {
    // Highest and last feedback after a step from rest to 50 %.
    const auto respond = [](const PidSettings& settings) {
        PidModel pid;
        pid.settings = settings;
        double top = 0;
        for (double t = 0; t < 40; t += 0.02) {
            pid.follow(0.02, pid.control(0.02, 50));
            top = std::max(top, pid.feedback());
        }
        return std::pair(top, pid.feedback());
    };
    EXPECT_NEAR(respond({.gain = 1, .integralSeconds = 0}).second, 25, 0.5) << "gain alone";
    EXPECT_GT(respond({.gain = 2, .integralSeconds = 0.4}).first, 60) << "lively";
    const auto [top, last] = respond({.gain = 0.4, .integralSeconds = 2});
    EXPECT_LT(top, 52) << "calm";
    EXPECT_NEAR(last, 50, 0.5);
}

// Written as a window writes them.
TEST(PidModel, IsSetByTheDrivesRegisters) {
    for (const Family family : AllFamilies) {
        const PidRegisters& at = traitsOf(family).pid;
        if (!at.source) continue;
        SCOPED_TRACE(familyName(family));
        PracticeDrive drive(familyData(family));
        const auto write = [&](int reg, int value) {
            const QByteArray body =
                QByteArray::fromHex(QString::asprintf("FF06%04X%04X", reg, value).toLatin1());
            EXPECT_EQ(drive.answer(body), body) << reg;
        };
        write(at.source, 1);
        write(0x2001, 3000);
        write(0x2000, 2);
        drive.advanceUs(60'000'000);
        EXPECT_NEAR(drive.motor().outputHz(), 30, 1.5);
        if (!at.outputLimit) continue;
        const auto& held = drive.parameters();
        const bool inTenths = held.number(at.outputLimit, 0) == 100 && held.value(at.outputLimit, 0) == 1000;
        write(at.outputLimit, inTenths ? 100 : 10);
        drive.advanceUs(60'000'000);
        EXPECT_LT(drive.motor().outputHz(), 8);
    }
}

}  // namespace
}  // namespace kelvane::drive

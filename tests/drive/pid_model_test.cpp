// The control loop of a practice drive: its registers decide how the motor gets to its set point.
#include "drive/pid_model.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "drive/drive_registers.h"

namespace kelvane::drive {
namespace {

// Highest and last feedback after a step from rest to 50 %.
struct Response {
    double top = 0;
    double last = 0;
};
Response respond(const PidSettings& settings, double seconds = 40) {
    PidModel pid;
    pid.settings = settings;
    Response response;
    for (double t = 0; t < seconds; t += 0.02) {
        pid.follow(0.02, pid.control(0.02, 50));
        response.top = std::max(response.top, pid.feedback());
    }
    response.last = pid.feedback();
    return response;
}

TEST(PidModel, FollowsItsSettings) {
    EXPECT_NEAR(respond({.gain = 1, .integralSeconds = 1.2}).last, 50, 0.5);
    EXPECT_NEAR(respond({.gain = 1, .integralSeconds = 0}).last, 25, 0.5) << "gain alone leaves a difference";
    const double lively = respond({.gain = 2, .integralSeconds = 0.4}).top;
    const double calm = respond({.gain = 0.4, .integralSeconds = 2}).top;
    EXPECT_GT(lively, 60);
    EXPECT_LT(calm, 52);
    EXPECT_LE(respond({.gain = 5, .integralSeconds = 1, .outputLimit = 30}).top, 30);
}

// Written as a window writes them.
TEST(PidModel, IsSetByTheDrivesRegisters) {
    for (const Family family : AllFamilies) {
        const PidRegisters& at = traitsOf(family).pid;
        if (!at.source) continue;
        PracticeDrive drive(familyData(family));
        const auto write = [&](int reg, int value) {
            const QByteArray body =
                QByteArray::fromHex(QString::asprintf("FF06%04X%04X", reg, value).toLatin1());
            EXPECT_EQ(drive.answer(body), body) << familyName(family) << " " << reg;
        };
        write(at.source, 1);
        write(0x2001, 3000);
        write(0x2000, 2);
        drive.advanceUs(60'000'000);
        EXPECT_NEAR(drive.motor().outputHz(), 30, 1.5) << familyName(family);
        if (at.outputLimit) {
            const int tenth = drive.parameters().number(at.outputLimit, 0) == 100 &&
                                      drive.parameters().value(at.outputLimit, 0) == 1000
                                  ? 100
                                  : 10;
            write(at.outputLimit, tenth);
            drive.advanceUs(60'000'000);
            EXPECT_LT(drive.motor().outputHz(), 8) << familyName(family);
        }
    }
}

}  // namespace
}  // namespace kelvane::drive

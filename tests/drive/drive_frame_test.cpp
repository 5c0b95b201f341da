#include "drive/drive_frame.h"

#include <gtest/gtest.h>

namespace kelvane::drive {
namespace {

struct Vector {
    const char* body;
    const char* lrc;
    const char* crc;  // in wire order
};

class FrameVectors : public testing::TestWithParam<Vector> {};

// Checks of the protocol's own frames, worked out by hand and by tools that share no code with this one.
INSTANTIATE_TEST_SUITE_P(
    Known, FrameVectors,
    testing::Values(Vector{"FF0321100003", "CA", "1BEC"}, Vector{"FF0620000002", "D9", "1615"},
                    Vector{"FF03210B0002", "D0", "AA2B"}, Vector{"FF06010005DC", "19", "9F21"},
                    Vector{"FF060100FFFB", "00", "9D9B"}, Vector{"FF030000000F", "EF", "1010"},
                    Vector{"FF033304000A", "BD", "9E96"}, Vector{"FF06010000", "FA", nullptr},
                    Vector{"0204070001", "F2", nullptr}, Vector{"FF8302", "7C", "A101"}));

TEST_P(FrameVectors, WrapAndUnwrap) {
    const QByteArray body = QByteArray::fromHex(GetParam().body);
    const QByteArray ascii = wrap(body, LineMode::Ascii);
    EXPECT_EQ(ascii, QByteArray(":").append(GetParam().body).append(GetParam().lrc).append("\r\n"));
    EXPECT_EQ(unwrap(ascii, LineMode::Ascii), body);

    const QByteArray rtu = wrap(body, LineMode::Rtu);
    if (GetParam().crc) {
        EXPECT_EQ(rtu, QByteArray::fromHex(QByteArray(GetParam().body).append(GetParam().crc)));
    }
    EXPECT_EQ(unwrap(rtu, LineMode::Rtu), body);
}

TEST(Frame, EverySingleDamagedBitIsNoticed) {
    const QByteArray body = QByteArray::fromHex("FF0321100003");
    for (const LineMode mode : {LineMode::Ascii, LineMode::Rtu}) {
        const QByteArray good = wrap(body, mode);
        EXPECT_FALSE(unwrap(withBadCheck(good, mode), mode));
        for (qsizetype i = 0; i < good.size() * 8; ++i) {
            QByteArray bad = good;
            bad[i / 8] = char(bad[i / 8] ^ 1 << i % 8);
            EXPECT_FALSE(unwrap(bad, mode)) << "bit " << i;
        }
        for (qsizetype n = 0; n < good.size(); ++n) EXPECT_FALSE(unwrap(good.left(n), mode)) << n << " bytes";
    }
}

}  // namespace
}  // namespace kelvane::drive

#include "drive/drive_frame.h"

#include <gtest/gtest.h>

namespace kelvane::drive {
namespace {

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

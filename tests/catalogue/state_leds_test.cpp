#include "catalogue/state_leds.h"

#include <gtest/gtest.h>

namespace kelvane {
namespace {

std::string word(const StateLed& led) { return !led.on ? "off" : led.flashing ? "flashing" : "on"; }

std::string shown(const StateLeds& leds) {
    return word(leds.RUN) + " " + word(leds.STOP) + " " + word(leds.JOG) + " " + word(leds.FWD) + " " +
           word(leds.REV);
}

TEST(StateLeds, TellRunAndDirectionWithTheirChanges) {
    const char* run[] = {"off on", "flashing on", "on flashing", "on off"};
    const char* turn[] = {"on off", "on flashing", "flashing on", "off on"};  // FWD REV
    for (quint32 i = 0; i < 4; ++i)
        for (quint32 j = 0; j < 4; ++j) {
            const quint32 bits = i | j << 3;
            EXPECT_EQ(shown(codedStateLeds(bits)), std::string(run[i]) + " off " + turn[j]);
            EXPECT_EQ(shown(codedStateLeds(bits | 4)), std::string(run[i]) + " on " + turn[j]);
        }
}

TEST(StateLeds, TellWhoCommands) {
    EXPECT_FALSE(codedStateLeds(0xF8FF).frequencyFromLink);
    EXPECT_TRUE(codedStateLeds(0x0100).frequencyFromLink);
    EXPECT_EQ(word(codedStateLeds(0x0200).EXT) + word(codedStateLeds(0x0200).PU), "onoff");
    EXPECT_EQ(word(codedStateLeds(0x0400).EXT) + word(codedStateLeds(0x0400).PU), "offon");
}

TEST(StateLeds, PlainWordsHaveOneBitALamp) {
    EXPECT_EQ(shown(plainStateLeds(0)), "off off off off off");
    EXPECT_EQ(shown(plainStateLeds(0b01001)), "on off off on off");
    EXPECT_EQ(shown(plainStateLeds(0b10110)), "off on on off on");
    EXPECT_EQ(word(plainStateLeds(0x0400).PU), "on");
}

}  // namespace
}  // namespace kelvane

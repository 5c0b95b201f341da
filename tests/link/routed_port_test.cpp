#include "link/routed_port.h"

#include <gtest/gtest.h>

#include "bench/stub_port.h"

namespace kelvane {
namespace {

struct Routed : testing::Test {
    const PortDirectory directory =
        PortDirectory::fromText(QStringLiteral("7=practice:Osier\n8=/dev/absent"));
    QList<PortTarget> made;
    StubPort* last = nullptr;
    bool factoryWorks = true;
    RoutedPort port{directory,
                    [this](const PortTarget& target) -> std::unique_ptr<TApdComPort> {
                        made << target;
                        if (!factoryWorks) return nullptr;
                        auto fake = std::make_unique<StubPort>();
                        last = fake.get();
                        return fake;
                    },
                    {.ComNumber = 7, .Baud = 19200}};
    void choose(int ComNumber) {
        PortSettings settings = port.settings();
        settings.ComNumber = ComNumber;
        port.setSettings(settings);
    }
};

TEST_F(Routed, BuildsNothingBeforeTheFirstOpenAndKeepsItsPortAfterwards) {
    EXPECT_FALSE(port.Open());
    EXPECT_FALSE(port.PutBlock("x"));
    EXPECT_EQ(port.GetChar(), std::nullopt);
    port.close();
    EXPECT_TRUE(made.isEmpty());
    EXPECT_TRUE(port.open());
    EXPECT_TRUE(port.open());
    EXPECT_EQ(last->settings(), port.settings());
    port.close();
    EXPECT_TRUE(port.open());
    EXPECT_EQ(made, QList<PortTarget>{directory.target(7)});
}

TEST_F(Routed, PassesEverythingOnAndBack) {
    port.open();
    port.PutBlock("block");
    port.PutString("text");
    EXPECT_EQ(last->kinds, (QList<QByteArray>{"block", "string"}));
    QByteArray taken;
    port.OnTriggerAvail = [&](int) { taken += *port.GetChar(); };
    last->arrive("a");
    EXPECT_EQ(taken, "a");
    QString reason;
    port.onLost = [&](const QString& told) { reason = told; };
    last->onLost(QStringLiteral("pulled"));
    EXPECT_EQ(reason, QStringLiteral("pulled"));
    last->input = "old";
    port.dropInput();
    EXPECT_TRUE(last->input.isEmpty());
    last->canHoldBack = true;
    EXPECT_TRUE(port.holdBack(true) && last->isHeldBack);
}

TEST_F(Routed, TakesAnotherNumberAtTheNextOpen) {
    QList<PortTarget> routed;
    port.onRouted = [&](const PortTarget& target) { routed << target; };
    port.open();
    const StubPort* const first = last;
    choose(8);
    EXPECT_TRUE(port.Open());
    EXPECT_EQ(last, first);
    port.close();
    port.open();
    EXPECT_NE(last, first);
    EXPECT_EQ(made, (QList<PortTarget>{directory.target(7), directory.target(8)}));
    EXPECT_EQ(routed, QList<PortTarget>{directory.target(8)});
}

TEST_F(Routed, SaysOnceWhyItCannotOpen) {
    QStringList reasons;
    port.onNotOpened = [&](const QString& reason) { reasons << reason; };
    choose(21);
    for (int attempt = 0; attempt < 5; ++attempt) EXPECT_FALSE(port.open());
    factoryWorks = false;
    choose(8);
    EXPECT_FALSE(port.open());
    ASSERT_EQ(reasons.size(), 2);
    EXPECT_TRUE(reasons[0].contains(QStringLiteral("1 to 20")));
    EXPECT_TRUE(reasons[1].contains(QStringLiteral("/dev/absent")));
    port.close();  // a new session is a new attempt
    EXPECT_FALSE(port.open());
    EXPECT_EQ(reasons.size(), 3);
    factoryWorks = true;
    choose(7);
    port.open();
    EXPECT_TRUE(port.openError().isEmpty());
    port.close();
    last->canOpen = false;
    EXPECT_FALSE(port.open());
    EXPECT_EQ(port.openError(), last->openError());
}

}  // namespace
}  // namespace kelvane

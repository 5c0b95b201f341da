// A person's key on a polling line that fails around it: its frame goes out exactly once, with its own
// handler, and STOP within two frames of the press.
#include <gtest/gtest.h>

#include "bench/hostile_line.h"
#include "bench/on_line_bench.h"

namespace kelvane {
namespace {

using drive::LineMode;

struct Key {
    quint8 task;
    const char* command;
    const char* name;
};
constexpr Key keys[] = {{2, "FF0620000002", "RUN"},
                        {3, "FF0620000001", "STOP"},
                        {5, "FF0620000030", "DIR"},
                        {6, "FF0620000003", "JOG"},
                        {10, "FF0620011388", "frequency"}};

// One press and what goes wrong around it, all counted in frames from a quiet poll on.
struct Press {
    const Key* key;
    const Harm* harm;
    int firstHarmed;  // reply, from 1
    int harmedInARow;
    int afterFrame;  // is on the wire when the key is pressed
    int afterMs;     // since it was sent
};

struct Keyboard : OnLineBench {
    QStringList answeredAs;  // "task command" of every answered key

    explicit Keyboard(const LineChoice& choice) : OnLineBench(choice) {
        credits.compareState = false;
        QObject::connect(&link, &RequestScheduler::answered,
                         [this](quint8 task, const QString& command, const QByteArray&) {
                             for (const Key& key : keys)
                                 if (key.task == task)
                                     answeredAs += QStringLiteral("%1 %2").arg(task).arg(command);
                         });
    }
    void press(const Key& key) { link.pushCommand(key.task, QString::fromLatin1(key.command)); }
    bool calm() {
        return clock.advanceUntil(
            [this, until = polls + 2] {
                return polls >= until && link.TimeoutCount == 0 &&
                       link.ReplyTimeoutTicks == link.BaudTimeoutTicks;
            },
            120000);
    }

    // What is wrong about a press; empty when all is right.
    QStringList tryOut(const Press& press) {
        if (!calm()) return {"the line never came to rest before"};
        answeredAs.clear();
        credits.miscredited.clear();
        press.harm->setOn(station.line.options());
        for (int i = 0; i < press.harmedInARow; ++i)
            faults().failAt(press.firstHarmed + i, press.harm->fault);
        const qsizetype start = sent();
        clock.advanceUntil([&] { return sent() >= start + press.afterFrame; }, 20000);
        clock.advance(press.afterMs);
        const qsizetype atPress = sent();
        this->press(*press.key);
        if (!calm() || !calm()) return {"the line never came to rest afterwards"};
        faults().clear();
        return judged(press, transcript().mid(start), atPress - start);
    }

    QStringList judged(const Press& press, const QStringList& frames, qsizetype pressedAt) const {
        QStringList wrong = credits.miscredited;
        const QString command = QString::fromLatin1(press.key->command);
        const qsizetype first = frames.indexOf(command);
        if (first < 0) return wrong + QStringList{"the frame never went out"};
        qsizetype behind = first;
        while (behind < frames.size() && frames[behind] == command) ++behind;
        const qsizetype last = behind - 1;
        if (frames.lastIndexOf(command) != last) wrong += "the frame went out again later";
        // Frame and reply bear the same number: the drive hears and answers all of them.
        const qsizetype harmedFrom = press.firstHarmed - 1;
        const bool ownHarmed = last >= harmedFrom && first < harmedFrom + press.harmedInARow;
        // STOP waits for nothing, so its own answer may queue behind one that is late.
        const bool ownLate = press.key->task == 3 && press.harm->ms > 0;
        if (last > first && !ownHarmed && !ownLate)
            wrong += QStringLiteral("the frame went out %1 times").arg(last - first + 1);
        if (press.key->task == 3 && first > pressedAt + 1)
            wrong += QStringLiteral("STOP was frame %1 after the press").arg(first - pressedAt + 1);
        const bool refused = ownHarmed && press.harm->fault == drive::LineFault::Exception;
        const QString own = QStringLiteral("%1 %2").arg(press.key->task).arg(command);
        if (answeredAs != (refused ? QStringList() : QStringList{own}))
            wrong += "answered as: " + answeredAs.join(QLatin1String(", "));
        if (!wrong.isEmpty())
            wrong += "frames: " + frames.join(QLatin1Char(' ')) +
                     QStringLiteral(", pressed after %1").arg(pressedAt);
        return wrong;
    }
};

using KeyCase = std::tuple<Family, LineMode>;
class HostileKeys : public testing::TestWithParam<KeyCase> {};

TEST_P(HostileKeys, GoOutOnceAndStopAtOnce) {
    const auto& [family, mode] = GetParam();
    const std::vector<Harm> harms = plainHarms() + lateReplies() + brokenReplies();
    const auto fresh = [&] {
        auto bench = std::make_unique<Keyboard>(LineChoice{.family = family, .mode = mode});
        EXPECT_TRUE(bench->goOnLine());
        return bench;
    };
    std::unique_ptr<Keyboard> bench = fresh();
    int number = 0;
    int failed = 0;
    for (const Harm& harm : harms)
        for (const int inARow : {1, 2})
            for (const int afterFrame : {1, 2, 3})
                for (const int afterMs : {0, 20, 60, 150, 700, 1150, 1300})
                    for (const Key& key : keys) {
                        if (++number % 7 && !everyCase()) continue;
                        if (number % 1000 == 0) bench = fresh();  // the port keeps the newest frames only
                        const Press press{&key, &harm, 2, inARow, afterFrame, afterMs};
                        const QStringList wrong = bench->tryOut(press);
                        if (wrong.isEmpty()) continue;
                        bench = fresh();
                        if (++failed > 8) continue;
                        ADD_FAILURE() << key.name << " " << afterMs << " ms after frame " << afterFrame
                                      << ", reply 2 " << harm.name << ", " << inARow << " in a row\n  "
                                      << wrong.join(QStringLiteral("\n  ")).toStdString();
                    }
    EXPECT_EQ(failed, 0) << "of " << number << " presses";
}

std::vector<KeyCase> keyCases() {
    return {{Family::Tilia, LineMode::Ascii}, {Family::Tilia, LineMode::Rtu},
            {Family::Larch, LineMode::Ascii}, {Family::Larch, LineMode::Rtu},
            {Family::Rowan, LineMode::Rtu},   {Family::Hazel, LineMode::Ascii}};
}

INSTANTIATE_TEST_SUITE_P(Lines, HostileKeys, testing::ValuesIn(keyCases()), [](const auto& tested) {
    return std::string(familyName(std::get<0>(tested.param))) +
           (std::get<1>(tested.param) == LineMode::Rtu ? "Rtu" : "Ascii");
});

}  // namespace
}  // namespace kelvane

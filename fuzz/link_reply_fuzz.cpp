// Sessions of any shape through send, receive, check and decode. The first bytes of an input choose mode,
// console rules, family, task and command; the rest is played: bursts that arrive, time that passes, also up
// to the fifth time-out, and windows that open and close in the middle of it. Whatever came, the link then
// sends again.
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "base/manual_tick_clock.h"
#include "link/request_scheduler.h"

namespace {

using namespace kelvane;

// A port that swallows what is sent and delivers bursts, or lets them wait while it is asked to hold back.
class FuzzPort final : public TApdComPort {
   public:
    bool open() override { return m_open = true; }
    void close() override {
        m_open = false;
        m_input.clear();
    }
    bool Open() const override { return m_open; }
    QString openError() const override { return {}; }
    const PortSettings& settings() const override { return m_line; }
    void setSettings(const PortSettings& line) override { m_line = line; }
    bool PutBlock(const QByteArray&) override { return ++written > 0; }
    bool PutString(const QByteArray&) override { return ++written > 0; }
    std::optional<char> GetChar() override {
        if (m_input.isEmpty()) return std::nullopt;
        const char c = m_input.front();
        m_input.remove(0, 1);
        return c;
    }
    void dropInput() override { m_input.clear(); }
    bool holdBack(bool on) override {
        m_heldBack = on && canHoldBack;
        return canHoldBack;
    }
    void arrive(const QByteArray& burst) {
        if (m_open) m_input += burst;
        announce();
    }
    void announce() {
        if (!m_input.isEmpty() && !m_heldBack) OnTriggerAvail(static_cast<int>(m_input.size()));
    }

    bool canHoldBack = false;
    unsigned written = 0;

   private:
    bool m_open = false;
    bool m_heldBack = false;
    PortSettings m_line{4, 115200, 8, ComParity::None, 2};
    QByteArray m_input;
};

// Gives every answer in turn and never blocks.
class FuzzOperator final : public Operator {
   public:
    BoxAnswer box(const QString&, const QString&, BoxIcon, BoxButtons buttons) override {
        if (buttons == BoxButtons::RetryCancel) return ++m_asked % 2 ? BoxAnswer::Retry : BoxAnswer::Cancel;
        return BoxAnswer::Ok;
    }
    std::optional<QString> openFile(const QString&) override { return {}; }
    std::optional<QString> saveFile(const QString&, const QString&) override { return {}; }
    LinkAnswer linkFailure(const QString&, bool) override { return LinkAnswer(1 + ++m_asked % 3); }
    void editValue(ValueEdit&) override {}

   private:
    int m_asked = 0;
};

struct Choice {
    quint8 task;
    const char* command;
};
constexpr Choice choices[] = {
    {0, "FF0321100003"},  {1, "FF0300000001"},  {4, "FF0321000010"},  {5, "FF0620000030"},
    {7, "FF0321160003"},  {9, "FF03211B0001"},  {11, "FF0303000001"}, {12, "FF030100000F"},
    {12, "FF0301000004"}, {13, "FF0601001770"}, {14, "FF033204000A"}, {15, "FF0333040008"},
    {17, "FF0321190001"}, {18, "FF0301000001"}, {19, "FF0401000001"}, {20, "FF032100007D"},
    {21, "FF0331000008"}, {80, "FF0321110001"}, {81, "FF0303000001"}, {50, "FF03"},
};

struct Bench {
    ManualTickClock clock;
    FixedWallClock wall{QDateTime(QDate(2026, 1, 1), QTime(0, 0))};
    FuzzOperator person;
    FuzzPort port;
    LangTable lang;
    RequestScheduler link{{clock, wall, person, port, lang}};
};

constexpr size_t Header = 5;
constexpr int MostSteps = 200;

enum Step : uint8_t {
    Wait,
    LongWait,
    OpenWindow,
    CloseWindow,
    GoOffAndOn,
    Burst
};  // Burst stands for all above

// One step of the play; the bytes that it took.
size_t play(Bench& bench, const uint8_t* data, size_t size) {
    RequestScheduler& link = bench.link;
    const int amount = data[0] >> 3;
    switch (data[0] & 7) {
        case Wait: bench.clock.advance(amount * TickLength); break;
        case LongWait: bench.clock.advance(amount * 500); break;
        case OpenWindow:
            link.prelude();
            link.ActiveFunction = static_cast<quint8>(OwnerParameter + amount % 5);
            break;
        case CloseWindow: link.tail(); break;
        case GoOffAndOn:
            link.Initial();
            link.TxTimer.setEnabled(true);
            break;
        default: {
            const size_t length = std::min(size - 1, size_t(amount) + 1);
            bench.port.arrive(QByteArray(reinterpret_cast<const char*>(data + 1), qsizetype(length)));
            return 1 + length;
        }
    }
    bench.port.announce();
    return 1;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < Header) return 0;
    static Bench bench;  // state is carried over on purpose: decode must stand any history
    RequestScheduler& link = bench.link;
    link.Initial();
    link.emptyQueues();
    const Choice& choice = choices[data[0] % std::size(choices)];
    link.ComMode = data[1] & 1;
    bench.port.canHoldBack = data[1] & 16;
    link.DriveStatus.DriveReady = (data[1] >> 1) & 1;
    link.ActiveFunction = static_cast<quint8>(1 + data[2] % 8);
    link.Console.CheckRuleCheckBoxChecked = data[1] & 4;
    link.Console.ListRunning = (data[1] >> 3) & 1;
    link.DriveStatus.DriveFamily = data[3];
    link.DriveStatus.StatusWordCount = data[3] & 1 ? data[4] : 14;
    link.DriveStatus.GroupIndex = data[4];
    link.push(choice.task, QString::fromLatin1(choice.command));
    link.TimeoutCount = 0;
    link.ReplyTimeoutTicks = 7;
    link.TxTimer.setInterval(1);  // a time-out of an earlier input slows it down
    link.TxTimer.setEnabled(true);
    bench.clock.advance(0);
    int steps = 0;
    for (size_t at = Header; at < size && steps < MostSteps; ++steps) at += play(bench, data + at, size - at);
    bench.clock.advance(200);

    link.Initial();
    const unsigned before = bench.port.written;
    link.TxTimer.setEnabled(true);
    bench.clock.advance(20000);
    if (bench.port.written == before) std::abort();  // the link no longer sends
    return 0;
}

// A header, then whole replies, in bursts of 32 behind one another, and what the last bytes say.
extern "C" bool kelvaneFuzzSeed(int index, std::vector<uint8_t>* bytes) {
    struct Seed {
        std::vector<uint8_t> header;
        QByteArray reply;
        std::vector<uint8_t> after;
    };
    constexpr uint8_t OneTick = Wait | 1 << 3;
    constexpr uint8_t HalfMinute = LongWait | 31 << 3;
    static const Seed seeds[] = {
        {{0, 2, 0, 4, 0}, ":FF030604000003007B76\r\n", {OneTick}},
        {{2, 18, 0, 4, 7},
         ":FF0320000000001770000000000000000000000000000000000000000000000000000047\r\n",
         {OpenWindow}},
        {{7, 18, 3, 4, 63},
         ":FF031E1770EA601388020217704D6178204F757470757420467265712E487A202034\r\n",
         {CloseWindow}},
        {{9, 2, 3, 2, 63}, ":FF860477\r\n", {GoOffAndOn}},
        {{0, 19, 0, 4, 63},
         QByteArray::fromHex("FF030604000003007BD8B6"),
         {OneTick, OpenWindow, CloseWindow}},
        {{9, 3, 3, 4, 63}, QByteArray::fromHex("FF060100177093FC"), {HalfMinute}},
        {{12, 3, 0, 2, 1}, QByteArray::fromHex("FF8302A101"), {HalfMinute, CloseWindow}},
        {{14, 7, 5, 2, 9}, ":FF0302000102\r\n", {OneTick}},
        {{2, 2, 0, 4, 0}, {}, {HalfMinute, HalfMinute, OpenWindow, HalfMinute, CloseWindow}},
    };
    if (index < 0 || static_cast<size_t>(index) >= std::size(seeds)) return false;
    const auto& [header, reply, after] = seeds[index];
    *bytes = header;
    for (qsizetype at = 0; at < reply.size(); at += 32) {
        const QByteArray burst = reply.mid(at, 32);
        bytes->push_back(static_cast<uint8_t>(Burst | (burst.size() - 1) << 3));
        bytes->insert(bytes->end(), burst.begin(), burst.end());
    }
    bytes->insert(bytes->end(), after.begin(), after.end());
    return true;
}

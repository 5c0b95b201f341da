// Replies of any shape through receive, check and decode. The first bytes of an input choose mode, console
// rules, family, task and command; the rest arrives as the reply, in bursts of the sizes that it gives.
#include <cstdint>
#include <vector>

#include "base/manual_tick_clock.h"
#include "link/request_scheduler.h"

namespace {

using namespace kelvane;

// A port that swallows what is sent and delivers one burst when asked.
class FuzzPort final : public TApdComPort {
   public:
    bool open() override { return m_open = true; }
    void close() override { m_open = false; }
    bool Open() const override { return m_open; }
    QString openError() const override { return {}; }
    const PortSettings& settings() const override { return m_line; }
    void setSettings(const PortSettings& line) override { m_line = line; }
    bool PutBlock(const QByteArray&) override { return true; }
    bool PutString(const QByteArray&) override { return true; }
    std::optional<char> GetChar() override {
        if (m_input.isEmpty()) return std::nullopt;
        const char c = m_input.front();
        m_input.remove(0, 1);
        return c;
    }
    void dropInput() override { m_input.clear(); }
    void arrive(const QByteArray& burst) {
        m_input += burst;
        OnTriggerAvail(static_cast<int>(m_input.size()));
    }

   private:
    bool m_open = false;
    PortSettings m_line{4, 115200, 8, ComParity::None, 2};
    QByteArray m_input;
};

// Takes every offer to go on and never blocks.
class FuzzOperator final : public Operator {
   public:
    BoxAnswer box(const QString&, const QString&, BoxIcon, BoxButtons) override { return BoxAnswer::Cancel; }
    std::optional<QString> openFile(const QString&) override { return {}; }
    std::optional<QString> saveFile(const QString&, const QString&) override { return {}; }
    LinkAnswer linkFailure(const QString&, bool) override { return LinkAnswer::Ignore; }
    void editValue(ValueEdit&) override {}
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

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    constexpr size_t Header = 5;
    if (size < Header) return 0;
    static Bench bench;  // state is carried over on purpose: decode must stand any history
    RequestScheduler& link = bench.link;
    link.Initial();
    link.emptyQueues();
    const Choice& choice = choices[data[0] % std::size(choices)];
    link.ComMode = data[1] & 1;
    link.DriveStatus.DriveReady = (data[1] >> 1) & 1;
    link.ActiveFunction = static_cast<quint8>(1 + data[2] % 8);
    link.Console.CheckRuleCheckBox = data[1] & 4;
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
    const size_t burst = 1 + data[4] % 64;
    for (size_t at = Header; at < size; at += burst)
        bench.port.arrive(QByteArray(reinterpret_cast<const char*>(data + at),
                                     static_cast<qsizetype>(std::min(burst, size - at))));
    bench.clock.advance(200);
    return 0;
}

extern "C" bool kelvaneFuzzSeed(int index, std::vector<uint8_t>* bytes) {
    static const std::pair<std::vector<uint8_t>, QByteArray> seeds[] = {
        {{0, 2, 0, 4, 0}, ":FF030604000003007B76\r\n"},
        {{2, 2, 0, 4, 7}, ":FF0320000000001770000000000000000000000000000000000000000000000000000047\r\n"},
        {{7, 2, 3, 4, 63}, ":FF031E1770EA601388020217704D6178204F757470757420467265712E487A202034\r\n"},
        {{9, 2, 3, 2, 63}, ":FF860477\r\n"},
        {{0, 3, 0, 4, 63}, QByteArray::fromHex("FF030604000003007BD8B6")},
        {{9, 3, 3, 4, 63}, QByteArray::fromHex("FF060100177093FC")},
        {{12, 3, 0, 2, 1}, QByteArray::fromHex("FF8302A101")},
        {{14, 7, 5, 2, 9}, ":FF0302000102\r\n"},
    };
    if (index < 0 || static_cast<size_t>(index) >= std::size(seeds)) return false;
    const auto& [header, reply] = seeds[index];
    *bytes = header;
    bytes->insert(bytes->end(), reply.begin(), reply.end());
    return true;
}

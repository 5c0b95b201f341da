// Scope files and the settings beside them: any content, and everything that is done with records afterwards.
#include <QBuffer>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "base/trend_view.h"
#include "diagnostics/trend/scope_file.h"
#include "diagnostics/trend/trend_csv.h"
#include "diagnostics/trend/trend_info.h"
#include "diagnostics/trend/trend_measure.h"
#include "diagnostics/trend/trend_text.h"

using namespace kelvane;

namespace {

void require(bool holds) {
    if (!holds) std::abort();
}

void useRecords(TrendData& data) {
    const TrendRecords& records = data.records;
    TrendView view;
    view.PaintRecords(0, records.size() - 1);
    for (const int x : {0, 80, 111, 300, 679, 5000}) {
        const ValueAtCursor value = view.valueAt(x, data);
        require(!value.DataValid || !records[value.RecordNo].isSeparator());
        trendValueText(data.channels[0], value.Digit[0], 2, 100);
        trendTimeText(value.Time);
    }
    measureTrend(data, 0, records.size());
    if (!records.isEmpty()) trendTimeText(records.last().Time);
    if (records.size() < 20)
        writeTrendCsv({data, data, TrendInfo(), 0, records.size()}, [](const QByteArray&) { return true; });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    QBuffer file;
    file.setData(bytes);
    file.open(QIODevice::ReadOnly);
    TrendData trend;
    trend.channels.resize(TrendChannelRoom);
    trend.channels[0].ValueTo = 66;
    trend.channels[0].DigitalTo = 6600;
    require(loadRecords(file, trend.records).ok);
    require(trend.records.size() == bytes.size() / 24);
    const auto records = trend.records.all();
    require(records.empty() || std::memcmp(records.data(), bytes.constData(), records.size_bytes()) == 0);
    useRecords(trend);
    if (const auto info = readTrendInfo(bytes)) {
        const QByteArray once = trendInfoBytes(*info);
        require(trendInfoBytes(*readTrendInfo(once)) == once);
    }
    return 0;
}

extern "C" bool kelvaneFuzzSeed(int index, std::vector<uint8_t>* bytes) {
    QByteArray file;
    if (index == 0) {
        TrendInfo info;
        info.markers = {{5, QStringLiteral("start")}};
        file = trendInfoBytes(info);
    } else if (index < 4) {
        for (int i = 0; i < 10 * index; ++i) {
            TrendRecord record{i % 7 == 3 ? 0.0 : 39492.5 + i, {}};
            record.Ch.fill(static_cast<quint16>(i * 997));
            file.append(reinterpret_cast<const char*>(&record), sizeof record);
        }
    } else {
        return false;
    }
    bytes->assign(file.begin(), file.end());
    return true;
}

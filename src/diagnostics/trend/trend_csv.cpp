#include "diagnostics/trend/trend_csv.h"

#include <QSaveFile>
#include <algorithm>
#include <functional>

#include "base/trend_time.h"
#include "link/number_text.h"

namespace kelvane {

namespace {

constexpr qsizetype PieceBytes = 1 << 20;
constexpr std::array<const char*, 4> LogicNames{"RUN command", "RUN status", "FWD command", "FWD status"};
constexpr std::array<quint16, 4> LogicHigh{10, 30, 50, 70};

char fieldSeparator() { return DecimalSep == QLatin1String(",") ? ';' : ','; }

QByteArray quoted(const QString& text) {
    QString inner = text;
    inner.replace(QLatin1Char('"'), QLatin1String("\"\""));
    return (QLatin1Char('"') % inner % QLatin1Char('"')).toUtf8();
}

QByteArray number(double value, int decimals) {
    QByteArray text = QByteArray::number(value, 'f', decimals);
    return DecimalSep == QLatin1String(".") ? text : text.replace(".", DecimalSep.toUtf8());
}

QByteArray head(const TrendCsv& csv) {
    QByteArray line =
        "\xEF\xBB\xBF" + quoted(QStringLiteral("Time")) + fieldSeparator() + quoted(QStringLiteral("s"));
    for (size_t c = 0; c < csv.data.channels.size(); ++c) {
        const TrendChannelInfo& channel = csv.info.channels[c];
        QString name = QStringLiteral("Ch%1 ").arg(c + 1) % channel.name;
        if (!channel.unit.isEmpty()) name += QStringLiteral(" [") % channel.unit % QStringLiteral("]");
        line += fieldSeparator() + quoted(name);
    }
    for (const char* name : LogicNames) line += fieldSeparator() + quoted(QString::fromLatin1(name));
    return line + "\r\n";
}

QByteArray timeText(double Time) {
    const auto moment = trendMoment(Time);
    if (!moment) return {};
    QString text =
        moment->date.toString(Qt::ISODate) % QLatin1Char(' ') % moment->time.toString(Qt::ISODateWithMs);
    if (DecimalSep != QLatin1String(".")) text.replace(QLatin1Char('.'), DecimalSep);
    return text.toUtf8();
}

QByteArray row(const TrendCsv& csv, qint64 at, double startTime) {
    constexpr double SecondsOfDay = 86400;
    const char separator = fieldSeparator();
    const TrendRecord& record = csv.data.records[at];
    QByteArray line = timeText(record.Time) + separator + number((record.Time - startTime) * SecondsOfDay, 3);
    for (size_t c = 0; c < csv.data.channels.size(); ++c)
        line += separator + number(csv.data.channels[c].valueOf(record.Ch[c]), csv.info.channels[c].decimals);
    for (size_t c = 0; c < LogicHigh.size(); ++c) {
        line += separator;
        if (at < csv.logic.records.size()) line += csv.logic.records[at].Ch[c] == LogicHigh[c] ? '1' : '0';
    }
    return line + "\r\n";
}

}  // namespace

void writeTrendCsv(const TrendCsv& csv, const std::function<bool(const QByteArray&)>& take) {
    const TrendRecords& records = csv.data.records;
    const qint64 from = std::max<qint64>(csv.from, 0);
    const qint64 to = std::min(csv.to, records.size() - 1);
    const qint64 first = records.isEmpty() ? -1 : records.nearestSample(std::min(from, records.size() - 1));
    const double startTime = first < 0 ? 0 : records[first].Time;
    QByteArray piece = head(csv);
    bool inBreak = false;
    for (qint64 at = from; at <= to; ++at) {
        const bool separator = records[at].isSeparator();
        if (separator && !inBreak) piece += quoted(QStringLiteral("break")) + "\r\n";
        inBreak = separator;
        if (!separator) piece += row(csv, at, startTime);
        if (piece.size() < PieceBytes) continue;
        if (!take(piece)) return;
        piece.clear();
    }
    take(piece);
}

FileResult saveTrendCsv(const QString& path, const TrendCsv& csv) {
    QSaveFile file(path);
    file.setDirectWriteFallback(false);
    bool ok = file.open(QIODevice::WriteOnly);
    if (ok)
        writeTrendCsv(csv, [&](const QByteArray& piece) { return ok = file.write(piece) == piece.size(); });
    const QString reason = file.errorString();
    if (!ok) file.cancelWriting();
    if (!ok || !file.commit())
        return {false, path % QStringLiteral(": ") % (ok ? file.errorString() : reason)};
    return {};
}

}  // namespace kelvane

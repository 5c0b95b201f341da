#include "diagnostics/trend/trend_info.h"

#include <QStringList>
#include <functional>

namespace kelvane {

namespace {

const QString Head = QStringLiteral("[Trend]");
const QString ChannelHead = QStringLiteral("[Channel %1]");
constexpr qsizetype MostMarkers = 10000;
constexpr qsizetype LongestText = 200;
constexpr double LargestTop = 1e12;  // of a scale, in units

// A line holds no line end, whatever a drive or a person put into a text.
QString line(const char* key, const QString& value) {
    QString text = value.left(LongestText);
    for (QChar& c : text)
        if (c < QLatin1Char(' ')) c = QLatin1Char(' ');
    return QLatin1String(key) % QLatin1Char('=') % text % QLatin1Char('\n');
}
QString line(const char* key, qint64 value) { return line(key, QString::number(value)); }

QString channelLines(const TrendChannelInfo& c) {
    return line("Entry", c.entry) % line("Name", c.name) % line("Unit", c.unit) % line("Format", c.format) %
           line("Scale", c.scale) % line("Decimals", c.decimals) %
           line("ValueTo", QString::number(c.ValueTo, 'g', 17)) % line("DigitalTo", c.DigitalTo) %
           line("Color", QStringLiteral("#%1").arg(c.color & 0xFFFFFF, 6, 16, QLatin1Char('0'))) %
           line("PenWidth", c.penWidth) % line("Visible", QLatin1String(c.visible ? "yes" : "no"));
}

void takeNumber(const QString& value, qint64 least, qint64 most, int& into) {
    bool ok = false;
    const qint64 number = value.toLongLong(&ok);
    if (ok && number >= least && number <= most) into = static_cast<int>(number);
}

void takeChannel(TrendChannelInfo& c, const QString& key, const QString& value) {
    bool ok = false;
    if (key == QLatin1String("Entry")) takeNumber(value, -1, 31, c.entry);
    if (key == QLatin1String("Name")) c.name = value;
    if (key == QLatin1String("Unit")) c.unit = value;
    if (key == QLatin1String("Format")) c.format = value.left(16);
    if (key == QLatin1String("Scale")) takeNumber(value, 0, 255, c.scale);
    if (key == QLatin1String("Decimals")) takeNumber(value, 0, 4, c.decimals);
    if (key == QLatin1String("DigitalTo")) takeNumber(value, 0, 2147483647, c.DigitalTo);
    if (key == QLatin1String("PenWidth")) takeNumber(value, 1, 5, c.penWidth);
    if (key == QLatin1String("Visible")) c.visible = value == QLatin1String("yes");
    if (key == QLatin1String("ValueTo")) {
        const double number = value.toDouble(&ok);
        if (ok && number >= 0 && number <= LargestTop) c.ValueTo = number;
    }
    if (key == QLatin1String("Color")) {
        const uint number = value.mid(1).toUInt(&ok, 16);
        if (ok && number <= 0xFFFFFF) c.color = number;
    }
}

void takeMarker(QList<TrendMarker>& markers, const QString& value) {
    const qsizetype bar = value.indexOf(QLatin1Char('|'));
    bool ok = false;
    const qint64 record = value.left(bar).toLongLong(&ok);
    if (bar > 0 && ok && record >= 0 && markers.size() < MostMarkers)
        markers.append({record, value.mid(bar + 1)});
}

void takeHead(TrendInfo& info, const QString& key, const QString& value) {
    if (key == QLatin1String("Start")) info.start = QDateTime::fromString(value, Qt::ISODateWithMs);
    if (key == QLatin1String("Drive")) info.drive = value;
    if (key == QLatin1String("Family")) takeNumber(value, -1, 255, info.DriveFamily);
    if (key == QLatin1String("Marker")) takeMarker(info.markers, value);
}

// Number of the channel whose section a line begins; 0 for any other line.
int channelOfHead(const QString& text) {
    for (int c = 1; c <= TrendChannelRoom; ++c)
        if (text == ChannelHead.arg(c)) return c;
    return 0;
}

}  // namespace

QString trendInfoPath(const QString& trdPath) { return trdPath % QStringLiteral(".info"); }

QByteArray trendInfoBytes(const TrendInfo& info) {
    QString text = Head % QLatin1Char('\n') % line("Start", info.start.toString(Qt::ISODateWithMs)) %
                   line("Drive", info.drive) % line("Family", info.DriveFamily);
    for (const TrendMarker& marker : info.markers)
        text += line("Marker", QString::number(marker.record) % QLatin1Char('|') % marker.name);
    for (int c = 1; c <= TrendChannelRoom; ++c)
        text += QLatin1Char('\n') % ChannelHead.arg(c) % QLatin1Char('\n') %
                channelLines(info.channels[static_cast<size_t>(c - 1)]);
    return text.toUtf8();
}

std::optional<TrendInfo> readTrendInfo(const QByteArray& bytes) {
    const QStringList lines = QString::fromUtf8(bytes).split(QLatin1Char('\n'));
    if (lines.first().trimmed() != Head) return {};
    TrendInfo info;
    int channel = 0;
    for (const QString& raw : lines) {
        const QString text = raw.endsWith(QLatin1Char('\r')) ? raw.chopped(1) : raw;
        if (const int begun = channelOfHead(text)) channel = begun;
        const qsizetype sign = text.indexOf(QLatin1Char('='));
        if (sign < 0) continue;
        const QString key = text.left(sign);
        const QString value = text.mid(sign + 1).left(LongestText);
        if (channel == 0) {
            takeHead(info, key, value);
        } else {
            takeChannel(info.channels[static_cast<size_t>(channel - 1)], key, value);
        }
    }
    return info;
}

}  // namespace kelvane

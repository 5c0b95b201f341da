#include "diagnostics/trend/trend_text.h"

#include <QLocale>
#include <cmath>

#include "base/trend_time.h"
#include "link/number_text.h"

namespace kelvane {

namespace {

QString wholeText(double value) { return QString::number(static_cast<qint64>(std::trunc(value))); }

}  // namespace

// The product is taken before the division: the top in counts is the whole part of ValueTo x scale, so the
// quotient is never below the digit.
QString trendValueText(const TrendChannel& channel, quint16 digit, quint8 StatusDecimals,
                       quint8 StatusScale) {
    if (channel.DigitalTo <= 0)
        return StatusDecimals ? InsertDecimalPoint(QStringLiteral("0"), StatusDecimals) : QStringLiteral("0");
    if (StatusDecimals == 0) return wholeText(digit * channel.ValueTo / channel.DigitalTo);
    const double counts = digit * (channel.ValueTo * StatusScale) / channel.DigitalTo;
    return InsertDecimalPoint(wholeText(counts), StatusDecimals);
}

QString trendTimeText(double Time) {
    const auto moment = trendMoment(Time);
    if (!moment) return NoRecordText;
    const QLocale locale = QLocale::system();
    return locale.toString(moment->date, QLocale::ShortFormat) % QLatin1Char(' ') %
           moment->time.toString(QStringLiteral("HH:mm:ss"));
}

}  // namespace kelvane

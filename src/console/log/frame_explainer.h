// Says in words what a logged frame means: address, function, registers by number and name, values with their
// unit, the check, the exception, the time. A pure reader of what the console and the listener have logged.
#pragma once

#include <QString>
#include <functional>
#include <optional>

namespace kelvane {

struct RegisterName {
    QString number;  // as the tables show it, such as "01-00"
    QString name;
    QString unit;
    int decimals = 0;
};
// What is known of a register; nothing for one that no table has.
using RegisterNames = std::function<std::optional<RegisterName>(quint16 address)>;

// A line of the console's log: the request, and the reply in its light. replyUs is the time from the send to
// the end of the wait, -1 when it is not known.
QString explainExchange(const QString& logLine, bool rtu, qint64 replyUs, const RegisterNames& names);
// A line of the listener, which may begin and end anywhere, in the light of the one before it, which may be
// the request that it answers. apartMs: from the one to the other.
struct HeardLine {
    QString text;
    QString before = {};
    int apartMs = 0;
};
QString explainHeard(const HeardLine& line, bool rtu, const RegisterNames& names);

}  // namespace kelvane

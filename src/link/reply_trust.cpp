#include "link/reply_trust.h"

#include <algorithm>

#include "link/number_text.h"

namespace kelvane {

namespace {

constexpr qint64 LongTrouble = 60000000;  // us; so long a line that failed is not trusted like others
constexpr qsizetype MostHeard = 2048;     // bytes; a line that chatters on has no answer in it
constexpr qsizetype ShortestRtuReply = 5;
constexpr qsizetype MostRemembered = 128;  // replies
constexpr qsizetype LongestRefusal = 11;   // characters
constexpr int WordsOfAText = 8;            // no two texts are alike
constexpr int EarlyByHabit = 3;            // exchanges in a row
constexpr qint64 UsualDelay = 48000;       // us; from a request to its answer, where none is known
constexpr qint64 DelayJitter = 1500;       // us
constexpr qint64 LateJitter = 8000;        // us
constexpr qint64 DelaySpread = 32000;      // us; by which an answer may be slower than those before

int wordsAskedFor(const QString& command) {
    const QByteArray sent = StrTo8bitInt(command);
    return byteAt(sent, 2) == 0x03 ? wordAt(sent, 5) : 0;
}

QByteArray asciiBinary(const QByteArray& frame) { return QByteArray::fromHex(frame.mid(1).trimmed()); }

QByteArrayList asciiReplies(const QByteArray& heard) {
    QByteArrayList found;
    for (qsizetype end = heard.indexOf("\r\n"); end >= 0; end = heard.indexOf("\r\n", end + 2)) {
        const qsizetype colon = heard.lastIndexOf(':', end);
        if (colon < 0) continue;
        const QByteArray frame = heard.mid(colon, end + 2 - colon);
        const QByteArray binary = asciiBinary(frame);
        if (binary.size() >= 4 && binary.size() * 2 + 3 == frame.size() && CalcLRC(binary) == 0)
            found += frame;
    }
    return found;
}

// Length of the reply that begins like this; 0 where none does.
qsizetype rtuLength(const QByteArray& bytes) {
    if (bytes.size() < ShortestRtuReply) return 0;
    const auto function = static_cast<quint8>(bytes[1]);
    if (function == 0x03) return 5 + static_cast<quint8>(bytes[2]);
    if (function == 0x06) return 8;
    return function & 0x80 ? ShortestRtuReply : 0;
}

QByteArrayList rtuReplies(const QByteArray& heard) {
    QByteArrayList found;
    for (qsizetype at = 0; at < heard.size();) {
        const QByteArray rest = heard.mid(at, 260);
        const qsizetype length = rtuLength(rest);
        const bool whole = length > 0 && length <= rest.size() &&
                           CalcCRC16(rest.first(length - 2)) == wordAt(rest, static_cast<int>(length) - 1);
        if (whole) found += rest.first(length);
        at += whole ? length : 1;
    }
    return found;
}

}  // namespace

QByteArrayList wholeReplies(LinkMode mode, const QByteArray& heard) {
    return mode == LinkMode::Ascii ? asciiReplies(heard) : rtuReplies(heard);
}

bool fitsCommand(LinkMode mode, const QByteArray& reply, const QString& command) {
    const QByteArray sent = StrTo8bitInt(command);
    const QByteArray binary = mode == LinkMode::Ascii ? asciiBinary(reply).chopped(1) : reply.chopped(2);
    if (sent.size() < 6 || binary.size() < 3) return false;
    const quint8 asked = byteAt(sent, 2);
    const quint8 came = byteAt(binary, 2);
    if (came == (asked | 0x80)) return binary.size() == 3;
    if (came != asked) return false;
    if (asked == 0x06) return binary.mid(1) == sent.mid(1, 5);
    return binary.size() == 3 + byteAt(binary, 3) && byteAt(binary, 3) == 2 * wordAt(sent, 5);
}

ReplyTrust::ReplyTrust(TickClock& clock, std::function<void()> onSilent)
    : m_clock(clock),
      m_onSilent(std::move(onSilent)),
      m_silence(clock, TickKind::Waiting, 1, [this] { silentTick(); }) {}

void ReplyTrust::sent(LinkMode mode, const QString& command, qint64 wireTimeUs, bool again) {
    if (std::exchange(m_cutOff, false) && settled(mode)) m_lostUntilUs = m_clock.nowUs();
    if (!m_heard.isEmpty() && m_certain && !inDoubt()) {
        const qint64 turnaround = m_sentUs + m_delayUs - m_earliestUs;
        m_slowestUs = std::max(m_slowestUs, m_delayUs);
        m_fastestUs = m_fastestUs < 0 ? turnaround : std::min(m_fastestUs, turnaround);
    }
    remember(mode);
    if (!m_early) m_earlyInARow = 0;
    m_command = command;
    const bool write = command.mid(2, 2) == QLatin1String("06");
    m_echo = write ? buildFrame(mode, command, FrameCheck::Standard).wire : QByteArray();
    m_heard.clear();
    m_sentUs = m_clock.nowUs();
    m_earliestUs = m_sentUs + wireTimeUs;
    m_again = again;
    m_early = m_more = m_copy = false;
    m_sentWhileLost = m_sentUs < m_lostUntilUs;
    m_certain = !inDoubt();
}

// Copies of these may come while later requests wait for their answers.
void ReplyTrust::remember(LinkMode mode) {
    const qint64 now = m_clock.nowUs();
    for (const QByteArray& reply : wholeReplies(mode, m_heard)) m_before.append({m_command, reply, now});
    while (!m_before.isEmpty() &&
           (m_before.size() > MostRemembered || m_before.front().atUs + LongestLateness < now))
        m_before.removeFirst();
}

bool ReplyTrust::heardForAnother(const QByteArray& reply) const {
    return reply != m_echo && std::any_of(m_before.begin(), m_before.end(), [&](const Heard& one) {
               return one.reply == reply && one.command != m_command;
           });
}

bool ReplyTrust::heardNothingBut(const QByteArray& reply) const {
    return QByteArray(m_heard).replace(reply, QByteArray()).isEmpty();
}

bool ReplyTrust::owedToAnother(LinkMode mode, const QByteArray& reply) const {
    return std::any_of(m_lost.begin(), m_lost.end(), [&](const QString& command) {
        return command != m_command && fitsCommand(mode, reply, command);
    });
}

bool ReplyTrust::hums(qint64 us) const {
    return heardAnything() && m_clock.nowUs() >= m_sentUs + m_delayUs + us;
}

void ReplyTrust::heard(LinkMode mode, const QByteArray& burst) {
    if (m_silenceLeft > 0) m_silenceLeft = m_silenceOwed;
    if (m_heard.isEmpty()) {
        m_delayUs = m_clock.nowUs() - m_sentUs;
        m_early = m_clock.nowUs() < m_earliestUs;
    }
    m_heard += burst;
    if (m_heard.size() > MostHeard) m_heard.remove(0, m_heard.size() - MostHeard);
    const qsizetype end = mode == LinkMode::Ascii ? m_heard.indexOf("\r\n") : -1;
    if (end >= 0 && end + 2 < m_heard.size()) m_more = true;
    if (heardForAnother(m_heard)) m_copy = true;
}

// What was sent in that time stays in doubt to its end.
bool ReplyTrust::othersAreLost() const { return m_sentWhileLost || m_clock.nowUs() < m_lostUntilUs; }

bool ReplyTrust::othersMayCome() const { return m_more || tooEarly() || m_copy || othersAreLost(); }

// No answer of this line has begun so soon or so late. Where its pace is not known yet, one is late that
// comes later than most drives' would.
bool ReplyTrust::unusualDelay() const {
    if (m_paceless) return false;
    const qint64 turnaround = m_sentUs + m_delayUs - m_earliestUs;
    if (m_fastestUs < 0) return turnaround > UsualDelay;
    return turnaround < m_fastestUs - DelayJitter || m_delayUs > m_slowestUs + LateJitter;
}

bool ReplyTrust::ownAnswerIsDue() const {
    const qint64 now = m_clock.nowUs();
    return m_copy && !m_again && !m_more && !tooEarly() && !othersAreLost() &&
           now >= m_sentUs + std::max(m_slowestUs, UsualDelay) + DelaySpread;
}

// The status is no text, and only a refusal is shorter than the words of one.
bool ReplyTrust::isText(const QByteArray& reply) const {
    return wordsAskedFor(m_command) >= WordsOfAText && m_command.mid(4, 2) != QLatin1String("21") &&
           reply.size() > LongestRefusal;
}

// A write is not repeated for a mere possibility: its echo is nobody else's, and its refusal comes in time.
bool ReplyTrust::mayBeAnothers(LinkMode mode, const QByteArray& reply, bool onlyCopies) const {
    const bool copy = heardForAnother(reply);
    const bool read = m_echo.isEmpty();
    if (m_again) return copy && ((read && unusualDelay()) || !heardNothingBut(reply));
    if (copy && isText(reply) && m_clock.nowUs() < m_troubledUntilUs) return true;
    if (othersAreLost()) return unusualDelay() && owedToAnother(mode, reply);
    return copy && (tooEarly() || unusualDelay() || !onlyCopies);
}

std::optional<QByteArray> ReplyTrust::answer(LinkMode mode, const QString& command) const {
    QByteArrayList fitting;
    for (const QByteArray& reply : wholeReplies(mode, m_heard))
        if (fitsCommand(mode, reply, command)) fitting += reply;
    const bool onlyCopies = std::all_of(fitting.begin(), fitting.end(),
                                        [this](const QByteArray& one) { return heardForAnother(one); });
    fitting.removeIf([&](const QByteArray& one) { return mayBeAnothers(mode, one, onlyCopies); });
    const bool same =
        std::all_of(fitting.begin(), fitting.end(), [&](const auto& one) { return one == fitting[0]; });
    if (fitting.isEmpty() || !same) return std::nullopt;
    return fitting.front();
}

bool ReplyTrust::heardEcho(LinkMode mode) const {
    return !m_echo.isEmpty() && wholeReplies(mode, m_heard).contains(m_echo);
}

void ReplyTrust::answered(const QByteArray& reply) {
    const bool lone = m_heard == reply && !m_again && !m_copy && !othersAreLost();
    m_earlyInARow = m_early && lone ? m_earlyInARow + 1 : 0;
    if (m_earlyInARow >= EarlyByHabit) m_paceless = true;
}

void ReplyTrust::forgetPace() {
    m_paceless = false;
    m_earlyInARow = 0;
    m_slowestUs = 0;
    m_fastestUs = -1;
    m_before.clear();
}

void ReplyTrust::lostTrack() {
    m_troubledUntilUs = m_clock.nowUs() + LongTrouble;
    awaitLate();
}

void ReplyTrust::cutOff() {
    m_cutOff = !inDoubt();
    awaitLate();
}

void ReplyTrust::awaitLate() {
    if (m_clock.nowUs() >= m_lostUntilUs) m_lost.clear();
    if (!m_lost.contains(m_command)) m_lost += m_command;
    m_lostUntilUs = m_clock.nowUs() + LongestLateness;
}

bool ReplyTrust::settled(LinkMode mode) const {
    const QByteArrayList heard = wholeReplies(mode, m_heard);
    return heard.size() == 1 && heard.front() == m_heard && fitsCommand(mode, m_heard, m_command) &&
           !m_copy && !tooEarly() && !unusualDelay();
}

void ReplyTrust::oweSilence(quint32 ticks) {
    if (ticks == 0) return;
    m_silenceOwed = std::max(ticks, m_silenceLeft);
    m_silenceLeft = m_silenceOwed;
    m_silence.setEnabled(false);
    m_silence.setEnabled(true);
}

void ReplyTrust::silentTick() {
    if (m_silenceLeft > 0 && --m_silenceLeft > 0) return;
    m_silence.setEnabled(false);
    m_onSilent();
}

}  // namespace kelvane

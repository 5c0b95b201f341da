// What may be taken for an answer. A reply is not the answer of the request in front just because it came:
// after a time-out, a resend, a bad check or a cut-off exchange the answers of earlier requests may still be
// on their way. While that is possible (doubt) no exchange ends early, all that was heard in it is looked at
// as a whole, and nothing is sent until the line has been silent. Owned by the scheduler.
#pragma once

#include <QByteArrayList>
#include <QList>
#include <optional>

#include "base/tick_clock.h"
#include "link/frame_codec.h"

namespace kelvane {

// Every whole reply with a good check in what was heard, as it stood on the wire, also between foreign bytes.
QByteArrayList wholeReplies(LinkMode mode, const QByteArray& heard);
// It has the shape of an answer to command: the words that were asked for, the echo of a write, or a refusal
// of that function.
bool fitsCommand(LinkMode mode, const QByteArray& reply, const QString& command);

class ReplyTrust {
   public:
    static constexpr qint64 LongestLateness = 5000000;  // us; an answer that comes later is not reckoned with

    // onSilent is called when the line has been silent for as long as it was owed.
    ReplyTrust(TickClock& clock, std::function<void()> onSilent);

    // ---- One exchange
    void sent(LinkMode mode, const QString& command, qint64 wireTimeUs, bool again);
    void heard(LinkMode mode, const QByteArray& burst);
    // Answers to other requests may be among what is heard.
    bool othersMayCome() const;
    bool inDoubt() const { return m_again || othersMayCome(); }
    // All the doubt there is comes from a copy of another request's reply, and by now a slow answer of its
    // own would have begun.
    bool ownAnswerIsDue() const;
    bool heardAnything() const { return !m_heard.isEmpty(); }
    // So long after the first byte behind the request there is no end yet.
    bool hums(qint64 us) const;
    // The one reply that fits; nothing when there is none, or when two that fit are not the same. What may be
    // another request's does not count: a copy of what was heard for that one, when it is a text on a line
    // that failed lately, comes beside a fresh reply or where no answer can have begun, and in a resend when
    // it comes beside anything or at an unusual time; and what a request that still waits could be answered
    // with, when it comes at an unusual time.
    std::optional<QByteArray> answer(LinkMode mode, const QString& command) const;
    bool heardEcho(LinkMode mode) const;  // of a write
    bool heardWholeReply(LinkMode mode) const { return !wholeReplies(mode, m_heard).isEmpty(); }
    // The exchange ended with a good answer. A line that answers before the request can have left it has no
    // pace (a pseudo terminal, a gateway); there, being early is no sign of a late answer. One such reply may
    // be the copy of another, several in a row are the line's way.
    void answered(const QByteArray& reply);

    // ---- After it
    // An answer may still come for a request that was sent.
    void lostTrack();
    // The same for one that was cut off. Where nothing was in doubt, its answer settles that before the next
    // request is sent, as it would have ended the exchange.
    void cutOff();
    // Nothing is sent until no byte has come for so many waiting ticks; counts at once.
    void oweSilence(quint32 ticks);
    bool silenceOwed() const { return m_silenceLeft > 0; }
    void forgetPace();

   private:
    struct Heard {
        QString command;
        QByteArray reply;
        qint64 atUs;
    };
    void silentTick();
    void awaitLate();
    bool othersAreLost() const;
    void remember(LinkMode mode);
    bool settled(LinkMode mode) const;
    bool isText(const QByteArray& reply) const;
    bool mayBeAnothers(LinkMode mode, const QByteArray& reply, bool onlyCopies) const;
    bool heardForAnother(const QByteArray& reply) const;
    bool heardNothingBut(const QByteArray& reply) const;
    bool owedToAnother(LinkMode mode, const QByteArray& reply) const;
    bool tooEarly() const { return m_early && !m_paceless; }
    bool unusualDelay() const;
    TickClock& m_clock;
    std::function<void()> m_onSilent;
    TickTimer m_silence;
    quint32 m_silenceOwed = 0;  // ticks
    quint32 m_silenceLeft = 0;
    QList<Heard> m_before;  // whole replies of the exchanges of the last seconds, oldest first
    QString m_command;      // the request in hand
    QByteArray m_echo;      // its answer, when it is a write: nothing else is answered like that
    QByteArray m_heard;     // since the request was sent
    qint64 m_sentUs = 0;
    qint64 m_earliestUs = 0;  // before it no answer can begin
    // From the end of a request to the first byte of its answer, without doubt; -1 while none is known.
    qint64 m_fastestUs = -1;
    qint64 m_slowestUs = 0;  // from a request to the first byte of its answer, in any exchange without doubt
    qint64 m_delayUs = 0;    // the same in the exchange in hand
    qint64 m_lostUntilUs = 0;
    qint64 m_troubledUntilUs = 0;
    QStringList m_lost;     // requests without an answer, as long as one may come
    bool m_cutOff = false;  // all that is lost is the answer of the request in hand
    bool m_sentWhileLost = false;
    bool m_certain = false;  // nothing was in doubt when the request in hand was sent
    bool m_again = false;
    bool m_early = false;
    bool m_more = false;  // bytes behind the end of a frame
    bool m_copy = false;  // what was heard is the reply to another request, byte by byte
    bool m_paceless = false;
    int m_earlyInARow = 0;  // exchanges that a lone early reply answered
};

}  // namespace kelvane

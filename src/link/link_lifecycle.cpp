// The link between its states: taken down, handed to a window and back, its lamp and its history.
#include <QLocale>

#include "link/request_scheduler.h"

namespace kelvane {

namespace {

// The zone (t) goes with the brackets around it, and so does the part of the day (B), which Qt would print as
// that letter; letters in quotes are words of the language.
QString longTimeWithoutZone(const QLocale& locale, const QTime& time) {
    QString format;
    bool quoted = false;
    for (const QChar sign : locale.timeFormat(QLocale::LongFormat)) {
        if (sign == u'\'') quoted = !quoted;
        if (quoted || (sign != u't' && sign != u'B')) format += sign;
    }
    for (const char* brackets : {"()", "[]"}) format.remove(QLatin1String(brackets));
    return locale.toString(time, format.trimmed());
}

}  // namespace

QString RequestScheduler::dateTimeText() const {
    return dateTimeText(QLocale::system(), m_site.wallClock.now());
}

QString RequestScheduler::dateTimeText(const QLocale& locale, const QDateTime& now) {
    return locale.toString(now.date(), QLocale::ShortFormat) % QLatin1Char(' ') %
           longTimeWithoutZone(locale, now.time());
}

void RequestScheduler::ShowHistoryMsg(const QString& text) {
    Q_EMIT historyLine(dateTimeText() % QStringLiteral(" > ") % text);
}

void RequestScheduler::notifyChanged() {
    ShownRecords shown{Labels, Lamp, Notice};
    if (shown == m_lastShown) return;
    m_lastShown = std::move(shown);
    Q_EMIT changed();
}

// ---- Lifecycle ----

void RequestScheduler::clearReception() {
    RxTickCount = 0;
    TimeoutCount = 0;
    Rx.RxLogText.clear();
    Rx.RxData.clear();
}

// The answer to a cut-off request may come until its wait would have ended. A STOP that went unanswered
// before is not forgotten; the console counts its repeats itself.
void RequestScheduler::abandonExchange() {
    if (!inConsole() && (m_sentAgain || !RxTimer.Enabled())) keepStop();
    if (!RxTimer.Enabled()) return;
    const quint32 left = ReplyTimeoutTicks > RxTickCount ? ReplyTimeoutTicks - RxTickCount : 0;
    const auto wire = static_cast<quint32>(m_wireTimeUs / (qint64(TickLength) * 1000) + 1);
    m_trust.cutOff();
    m_trust.oweSilence(wire + left + BaudTimeoutTicks);
    if (inHand()) dropFront();
}

void RequestScheduler::rest() {
    abandonExchange();
    TxTimer.setEnabled(false);
    RxTimer.setEnabled(false);
    m_sendDeferred = m_startWanted = m_givingUp = false;
    endHoldBack();
}

void RequestScheduler::setLamp(LampState state) {
    switch (state) {
        case LampState::OffLine: Lamp = {}; break;
        case LampState::Silent:
            Lamp.ComStatusAbLED = QStringLiteral("Off Line");
            Lamp.green = false;
            break;
        case LampState::OnLine: Lamp = lampOnLine(mode(), port().settings()); break;
        case LampState::KeypadAsSource: Lamp.ComStatusAbLED = QStringLiteral("On Line"); break;
    }
    if (!Lamp.onLine()) stepIndicator(0);
    notifyChanged();
}

void RequestScheduler::Initial() {
    rest();
    ActiveFunction = OwnerMain;
    DriveStatus.KeypadDataDue = 1;
    Labels = {};
    clearQueues();
    if (m_brandVariant == 2) {
        for (const int task : {50, 51, 52}) push(static_cast<quint8>(task));
    } else {
        push(0, QStringLiteral("FF0321100003"));
        push(21);
    }
    DriveStatus.GroupIndex = DriveStatus.FaultCode = DriveStatus.ExceptionPending = DriveStatus.DriveReady =
        0;
    DriveStatus.FaultTextValid = DriveStatus.ExceptionTextDone = 0;
    ParamRead.ReadDone = ParamRead.WriteDone = 0;
    port().close();
    m_trust.forgetPace();
    clearReception();
    InitFailCount = 0;
    Rx.RxGotCR = Rx.RxFrameDone = 0;
    m_silentSince = false;
    Notice.TCEmessageFormShown = false;
    DriveIdentified = 1;
    setLamp(LampState::OffLine);
    Q_EMIT initialRun();
    notifyChanged();
}

void RequestScheduler::InitialUnder(quint8 owner) {
    Initial();
    ActiveFunction = owner;
}

void RequestScheduler::prelude() {
    rest();
    clearReception();
    emptyQueues();
    Notice.TCEmessageFormShown = false;
    Q_EMIT preludeRun();
    notifyChanged();
    if (stopIsNext()) start();
}

void RequestScheduler::tail() {
    ActiveFunction = OwnerMain;
    Notice.TCEmessageFormShown = false;
    if (Lamp.onLine()) {
        rest();
        clearReception();
        start();
        Q_EMIT tailRun();
    }
    notifyChanged();
}

}  // namespace kelvane

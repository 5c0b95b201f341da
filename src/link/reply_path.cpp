// What an exchange that got a reply does with it, by its outcome.
#include <algorithm>

#include "link/request_scheduler.h"
#include "link/task_table.h"

namespace kelvane {

namespace {

constexpr quint8 MaxInitFails = 4;
const QString Cofirm = QStringLiteral("Cofirm");

}  // namespace

void RequestScheduler::handleReply() {
    TxTimer.setInterval(StepInterval);
    Notice.TCEmessageFormShown = false;
    notifyChanged();
    TimeoutCount = 0;
    ReplyTimeoutTicks = BaudTimeoutTicks;
    if (std::exchange(m_silentSince, false)) Q_EMIT answeredAgain();
    if (!Lamp.green && !inConsole()) {
        setLamp(LampState::OnLine);
        Q_EMIT wentOnLine();
    }
    stepIndicator(m_indicator == 90 ? 0 : std::min(m_indicator + 10, 100));  // the bar ends at 100

    if (!inHand()) return;  // its request was taken back: it answers nobody's
    // Fronts are copied: a box below may let other windows touch the queues.
    const QString command = CommandQueue.empty() ? QString() : CommandQueue.front();
    const quint8 task = TaskQueue.empty() ? quint8(0xFF) : TaskQueue.front();
    // In doubt a piece of a reply is damaged, even if its check happens to be good.
    const bool pieces = !inConsole() && m_trust.inDoubt() && !m_trust.heardWholeReply(mode());
    const JudgedReply reply =
        pieces ? JudgedReply{} : judgeReply(mode(), command, Rx, !inConsole() || Console.rules());
    Rx.RxData = reply.RxData;
    actOn(reply, command, task);
    if (inConsole() && reply.verdict != ReplyVerdict::Good) Console.failed(reply, Rx.RxLogText);
}

void RequestScheduler::actOn(const JudgedReply& reply, const QString& command, quint8 task) {
    switch (reply.verdict) {
        case ReplyVerdict::Good: return onGoodReply(command, reply.RxData, task);
        case ReplyVerdict::Exception: return onException(reply.ExceptionCode, task);
        case ReplyVerdict::BadChecksum:
            if (!inConsole()) onBadChecksum();
            return;
        case ReplyVerdict::LengthError:
        case ReplyVerdict::FunctionError: break;
    }
    if (inConsole()) return;
    ShowHistoryMsg(reply.verdict == ReplyVerdict::LengthError
                       ? QStringLiteral("Receive data length is not correct !!")
                       : QStringLiteral("Function code error !! -> "));
    if (task == ExceptionTextTask) onExceptionTextFailed();
    countRule();
}

void RequestScheduler::onGoodReply(const QString& command, const QByteArray& RxData, quint8 task) {
    if (!DriveStatus.DriveReady) InitFailCount = 0;
    DriveStatus.ExceptionPending = 0;
    credit(task, command, RxData);
}

void RequestScheduler::credit(quint8 task, const QString& command, const QByteArray& RxData) {
    if (task < m_handlers.size() && m_handlers[task]) m_handlers[task](command, RxData);
    Q_EMIT answered(task, command, RxData);
}

void RequestScheduler::onBadChecksum() {
    ShowHistoryMsg(QStringLiteral("Checksum Error !! Receive Data > ") % Rx.RxLogText);
    m_trust.lostTrack();
    m_trust.oweSilence(BaudTimeoutTicks);
    if (DriveStatus.DriveReady) {
        // Kept: no limit on these repeats.
        Notice.LinkAction = 1;
        Q_EMIT badCheck();
        return;
    }
    const BoxAnswer answer = operatorAsked().box(lang().MsgStr(Message::ChecksumError), Cofirm, BoxIcon::Stop,
                                                 BoxButtons::RetryCancel);
    Notice.LinkAction = answer == BoxAnswer::Retry ? 1 : 3;
    if (answer != BoxAnswer::Retry)
        operatorAsked().tell(lang().MsgStr(Message::OnLineFail), QStringLiteral("Error"));
}

void RequestScheduler::onException(quint8 code, quint8 task) {
    // A drive without text registers would be asked for the text of its own refusal for ever.
    if (task == ExceptionTextTask && !inConsole()) {
        onExceptionTextFailed();
        countRule();
        return;
    }
    DriveStatus.ExceptionPending = 1;
    DriveStatus.ExceptionCode = code;
    if (inConsole()) return;
    Q_EMIT refused(task, code);
    push(ExceptionTextTask, exceptionTextCommand(DriveStatus.DriveFamily, code));
    countRule();
}

// Whoever waits for the text goes on without it.
void RequestScheduler::onExceptionTextFailed() {
    DriveStatus.ExceptionPending = 0;
    storeExceptionText(*this, QString());
}

void RequestScheduler::countRule() {
    if (DriveStatus.DriveReady) return;
    ++InitFailCount;
    if (InitFailCount <= MaxInitFails) {
        Notice.LinkAction = 1;
        return;
    }
    Notice.LinkAction = 3;
    Q_EMIT identificationFailed();
    operatorAsked().tell(QStringLiteral("Initial drive failed !!"), QStringLiteral("Error"));
}

}  // namespace kelvane

#include "drive/line_model.h"

#include <algorithm>
#include <utility>

namespace kelvane::drive {

namespace {

constexpr qsizetype LongestFrame = 600;
constexpr qint64 UsbPacketUs = 16000;
constexpr qsizetype FifoDepth = 8;

bool sameWire(const PortSettings& a, const PortSettings& b) {
    return a.Baud == b.Baud && a.DataBits == b.DataBits && a.Parity == b.Parity && a.StopBits == b.StopBits;
}

}  // namespace

void FaultPlan::failNext(LineFault fault, int times) {
    for (quint64 k = m_replies + 1; times > 0; ++k) {
        if (m_planned.try_emplace(k, fault).second) --times;
    }
}

void FaultPlan::clear() {
    m_planned.clear();
    m_chance.fill(0);
}

LineFault FaultPlan::next() {
    const auto planned = m_planned.find(++m_replies);
    if (planned != m_planned.end()) {
        const LineFault fault = planned->second;
        m_planned.erase(planned);
        return fault;
    }
    if (std::ranges::all_of(m_chance, [](double percent) { return percent <= 0; })) return LineFault::None;
    double rolled = double(m_random() % 100000) / 1000;
    for (size_t fault = 1; fault < m_chance.size(); ++fault) {
        if (rolled < m_chance[fault]) return LineFault(fault);
        rolled -= m_chance[fault];
    }
    return LineFault::None;
}

void LineModel::send(const QByteArray& bytes, const PortSettings& host, qint64 nowUs) {
    advanceTo(nowUs);
    if (m_unplugged) return;
    const bool heard = sameWire(host, m_options.wire);
    const qint64 startUs = std::max(nowUs, m_wireFreeUs);
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        m_wireFreeUs = startUs + host.wireTimeUs(i + 1);
        m_toDrive.push_back({m_wireFreeUs, bytes[i], heard});
    }
}

void LineModel::advanceTo(qint64 nowUs) {
    m_nowUs = std::max(m_nowUs, nowUs);
    while (!m_toDrive.empty() && m_toDrive.front().atUs <= m_nowUs) {
        const LineByte in = m_toDrive.front();
        m_toDrive.pop_front();
        closeSilentFrame(in.atUs);
        takeByte(in);
    }
    closeSilentFrame(m_nowUs);
    passDriveTime(m_nowUs);
}

void LineModel::passDriveTime(qint64 atUs) {
    if (m_driveUs >= 0 && atUs > m_driveUs) m_drive.advanceUs(atUs - m_driveUs);
    m_driveUs = std::max(m_driveUs, atUs);
}

// An RTU request ends when 3.5 characters pass without another one beginning.
void LineModel::closeSilentFrame(qint64 untilUs) {
    if (m_options.mode != LineMode::Rtu || m_frame.isEmpty()) return;
    const qint64 endUs = m_lastByteUs + silenceUs();
    if (untilUs >= endUs) frameComplete(endUs);
}

void LineModel::takeByte(const LineByte& in) {
    if (!in.heard) {
        m_frame.clear();
        return;
    }
    if (m_options.mode == LineMode::Ascii && in.byte == ':') m_frame.clear();
    if (m_frame.size() < LongestFrame) m_frame += in.byte;
    m_lastByteUs = in.atUs;
    if (m_options.mode == LineMode::Ascii && in.byte == '\n') frameComplete(in.atUs);
}

void LineModel::frameComplete(qint64 atUs) {
    const QByteArray request = std::exchange(m_frame, {});
    const auto body = unwrap(request, m_options.mode);
    if (!body || !m_drive.hears(*body)) return;
    passDriveTime(atUs);
    const bool answered = (*body)[0] != 0;
    const LineFault fault = answered ? m_faults.next() : LineFault::None;
    const QByteArray frame = replyFrame(*body, request, fault);
    if (m_unplugged || frame.isEmpty()) return;
    const qint64 startUs = std::max(atUs, m_lastByteUs + m_options.turnaroundUs);
    scheduleFaulty(frame, startUs, fault);
}

void LineModel::scheduleFaulty(const QByteArray& frame, qint64 startUs, LineFault fault) {
    const qsizetype pieces = fault == LineFault::InPieces ? std::max(m_options.pieces, 1) : 1;
    const qsizetype pieceSize = (frame.size() + pieces - 1) / pieces;
    if (fault == LineFault::Late) startUs += m_options.lateUs;
    for (qsizetype at = 0; at < frame.size(); at += pieceSize)
        schedule(frame.mid(at, pieceSize), at == 0 ? startUs : m_replyEndUs + m_options.pieceGapUs);
    if (fault == LineFault::Doubled) schedule(frame, m_replyEndUs + m_options.secondUs);
}

QByteArray LineModel::replyFrame(const QByteArray& body, const QByteArray& request, LineFault fault) {
    const LineMode mode = m_options.mode;
    if (fault == LineFault::Exception)
        return wrap(PracticeDrive::refusal(body, m_options.exceptionCode), mode);
    QByteArray reply = m_drive.answer(body);
    if (reply.isEmpty()) return {};
    switch (fault) {
        case LineFault::Silent: return {};
        case LineFault::BadCheck: return withBadCheck(wrap(reply, mode), mode);
        case LineFault::CutShort: {
            const QByteArray whole = wrap(reply, mode);
            return whole.left(whole.size() / 2);
        }
        case LineFault::Noise: return wrap(reply, mode).prepend(mode == LineMode::Ascii ? '#' : '\0');
        case LineFault::WrongFunction: reply[1] = char(reply[1] ^ 0x07); break;
        case LineFault::Echo: return request;
        case LineFault::Unplugged: setUnplugged(true); return {};
        default: break;
    }
    return wrap(reply, mode);
}

void LineModel::schedule(const QByteArray& frame, qint64 startUs) {
    const PortSettings& wire = m_options.wire;
    startUs = std::max(startUs, m_replyEndUs);
    m_replyEndUs = startUs + wire.wireTimeUs(frame.size());
    const auto arrival = [&](qsizetype count) {
        const qint64 endUs = startUs + wire.wireTimeUs(count);
        switch (m_options.flow) {
            case ByteFlow::Usb: return (endUs + UsbPacketUs - 1) / UsbPacketUs * UsbPacketUs;
            case ByteFlow::Fifo: {
                const qsizetype full = (count + FifoDepth - 1) / FifoDepth * FifoDepth;
                if (full <= frame.size()) return startUs + wire.wireTimeUs(full);
                return startUs + wire.wireTimeUs(frame.size() + 4);
            }
            case ByteFlow::Single: break;
        }
        return endUs;
    };
    for (qsizetype i = 0; i < frame.size(); ++i) {
        const qint64 atUs = std::max(arrival(i + 1), m_toHost.empty() ? 0 : m_toHost.back().atUs);
        if (m_toHost.empty() || m_toHost.back().atUs != atUs) m_toHost.push_back({atUs, {}});
        m_toHost.back().bytes += frame[i];
    }
}

qint64 LineModel::nextDueUs() const {
    qint64 dueUs = m_toHost.empty() ? -1 : m_toHost.front().atUs;
    const auto sooner = [&dueUs](qint64 atUs) { dueUs = dueUs < 0 ? atUs : std::min(dueUs, atUs); };
    const bool rtu = m_options.mode == LineMode::Rtu;
    if (!m_toDrive.empty()) {
        const auto lineEnd = std::ranges::find(m_toDrive, '\n', &LineByte::byte);
        const bool ends = !rtu && lineEnd != m_toDrive.end();
        sooner(ends ? lineEnd->atUs : m_toDrive.back().atUs + (rtu ? silenceUs() : 0));
    } else if (rtu && !m_frame.isEmpty()) {
        sooner(m_lastByteUs + silenceUs());
    }
    return dueUs;
}

QByteArray LineModel::takeArrived() {
    QByteArray bytes;
    while (!m_toHost.empty() && m_toHost.front().atUs <= m_nowUs) {
        bytes += m_toHost.front().bytes;
        m_toHost.pop_front();
    }
    return bytes;
}

void LineModel::setUnplugged(bool on) {
    m_unplugged = on;
    if (!on) return;
    m_toDrive.clear();
    m_toHost.clear();
    m_frame.clear();
}

}  // namespace kelvane::drive

#include "link_bench_line.h"

#include <sys/resource.h>
#include <time.h>

#include <algorithm>

#include "drive/parameter_data.h"

namespace kelvane::bench {

namespace {

constexpr int StartLimitMs = 20000;
constexpr int RtuRequest = 8;
constexpr int RtuReply = 5 + 2 * RecordWords;
constexpr int AsciiRequest = 17;
constexpr int AsciiReply = 11 + 4 * RecordWords;

}  // namespace

PortSettings LineCase::settings() const {
    return {.ComNumber = 4, .Baud = Baud, .DataBits = mode == LinkMode::Rtu ? 8 : 7, .StopBits = 2};
}

qint64 LineCase::requestUs() const {
    return settings().wireTimeUs(mode == LinkMode::Rtu ? RtuRequest : AsciiRequest);
}

qint64 LineCase::replyUs() const {
    return settings().wireTimeUs(mode == LinkMode::Rtu ? RtuReply : AsciiReply);
}

qint64 LineCase::silenceUs() const {
    if (mode != LinkMode::Rtu) return 0;
    return rtuSilenceUs(settings().silenceUs(), Baud, 0);
}

qint64 LineCase::limitUs() const {
    const qint64 turnaround =
        mode == LinkMode::Rtu ? std::max(TurnaroundUs, settings().silenceUs()) : TurnaroundUs;
    return requestUs() + turnaround + replyUs();
}

QString LineCase::name() const {
    return QStringLiteral("%1 %2")
        .arg(mode == LinkMode::Rtu ? QStringLiteral("RTU") : QStringLiteral("ASCII"), -5)
        .arg(Baud, 6);
}

double cpuUs() {
    rusage used{};
    ::getrusage(RUSAGE_SELF, &used);
    const auto us = [](const timeval& t) { return double(t.tv_sec) * 1e6 + double(t.tv_usec); };
    return us(used.ru_utime) + us(used.ru_stime);
}

double nowUs() {
    timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    return double(now.tv_sec) * 1e6 + double(now.tv_nsec) / 1e3;
}

std::vector<quint16> parametersToRead(int count) {
    const drive::FamilyData& larch = drive::familyData(Family::Larch);
    std::vector<quint16> all;
    for (size_t group = 0; group + 1 < larch.groups.size(); ++group)
        for (size_t number = 0; number < larch.groups[group].rows.size(); ++number)
            all.push_back(static_cast<quint16>(group << 8 | number));
    std::vector<quint16> chosen;
    for (size_t i = 0; i < static_cast<size_t>(count); ++i) chosen.push_back(all[i % all.size()]);
    return chosen;
}

DriveProcess::DriveProcess(const LineCase& line, const QString& flow, const QStringList& more) {
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(QStringLiteral(KELVANE_DRIVE_PROGRAM),
                    QStringList{QStringLiteral("--mode"),
                                line.mode == LinkMode::Rtu ? QStringLiteral("rtu") : QStringLiteral("ascii"),
                                QStringLiteral("--baud"), QString::number(line.Baud),
                                QStringLiteral("--turnaround"), QString::number(double(TurnaroundUs) / 1000),
                                QStringLiteral("--address"), QString::number(PeerAddress),
                                QStringLiteral("--bytes"), flow, QStringLiteral("--until-eof")} +
                        more);
    while (m_process.state() != QProcess::NotRunning && !m_process.canReadLine())
        if (!m_process.waitForReadyRead(StartLimitMs)) break;
    m_device = QString::fromLocal8Bit(m_process.readLine().trimmed());
}

DriveProcess::~DriveProcess() {
    m_process.closeWriteChannel();
    if (m_process.state() == QProcess::NotRunning || m_process.waitForFinished(StartLimitMs)) return;
    vanish();
}

void DriveProcess::vanish() {
    m_process.kill();
    m_process.waitForFinished(StartLimitMs);
}

}  // namespace kelvane::bench

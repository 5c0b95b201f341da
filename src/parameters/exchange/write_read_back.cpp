#include "parameters/exchange/write_read_back.h"

#include <algorithm>

#include "link/number_text.h"

namespace kelvane {

namespace {

constexpr quint8 ReadBackTask = 18;
constexpr int ReadBackProgressWidth = 329;

}  // namespace

WriteReadBack::WriteReadBack(ParameterBench& bench, const ParameterScreen& screen, ProgressDialog& progress,
                             StringGrid& AdvStringGrid1, quint8& WriteWaiting)
    : ReflahDtataTimer(bench.clock, TickKind::Stepping, 1, [this] { ReflahDtataTimerTimer(); }),
      m_bench(bench),
      m_screen(screen),
      m_progress(progress),
      m_list(AdvStringGrid1),
      m_WriteWaiting(WriteWaiting),
      m_restWatch(
          bench.clock, bench.link, [this] { return m_WriteWaiting && !m_bench.link.ParamRead.ReadDone; },
          [this] {
              m_progress.tellNoAnswer(
                  m_bench.noAnswerText(m_list.cell(column::PrNo, static_cast<int>(RefreshRow))));
          }) {
    connect(&bench.link, &RequestScheduler::cycleEnded, this, [this] { ReflahDtataTimer.kick(); });
    connect(&progress, &ProgressDialog::cancelled, this, &WriteReadBack::onCancel);
    connect(&progress, &ProgressDialog::stopWaiting, this, &WriteReadBack::abandon);
}

void WriteReadBack::start(int rows) {
    m_bench.link.ParamRead.ReadDone = 0;
    m_WriteWaiting = 0;
    RefreshRow = 0;
    m_bench.link.emptyQueues();
    ReflahDtataTimer.setEnabled(true);
    m_restWatch.start();
    m_progress.glyph = ProgressGlyph::ReadDrive;
    m_progress.show(
        QStringLiteral("Reading parameters from ") % m_screen.ModelVrLabel % QStringLiteral(" ..."), rows,
        rows, ReadBackProgressWidth);
}

void WriteReadBack::stop() {
    if (!ReflahDtataTimer.Enabled()) return;
    ReflahDtataTimer.setEnabled(false);
    m_restWatch.stop();
    m_progress.close();
    m_progress.setPosition(0);
}

void WriteReadBack::ReflahDtataTimerTimer() {
    if (!m_WriteWaiting) {
        nextRow();
    } else if (!m_bench.link.ParamRead.ReadDone && m_bench.requestThrownAway()) {
        send();
    }
    if (m_bench.link.ParamRead.ReadDone) takeReply();
    if (!m_WriteWaiting) ReflahDtataTimer.kick();
}

void WriteReadBack::nextRow() {
    ++RefreshRow;
    if (RefreshRow >= static_cast<quint32>(m_list.RowCount())) {
        stop();
        Q_EMIT ended();
    } else if (m_list.checkBox(static_cast<int>(RefreshRow))) {
        m_WriteWaiting = 1;
        send();
    }
}

void WriteReadBack::send() {
    m_bench.link.DriveStatus.ExceptionTextDone = 0;
    m_bench.request(ReadBackTask, QStringLiteral("FF03") %
                                      m_list.cell(column::Address, static_cast<int>(RefreshRow)) %
                                      QStringLiteral("0001"));
}

void WriteReadBack::takeReply() {
    const int row = static_cast<int>(RefreshRow);
    m_bench.link.ParamRead.ReadDone = 0;
    m_WriteWaiting = 0;
    m_progress.parameterDone(QStringLiteral("Process Pr ") % m_list.cell(column::PrNo, row) %
                             QStringLiteral(":  ") % m_list.cell(column::Description, row));
    m_progress.setPosition(m_progress.position + 1);
    // Kept: no sign here, a negative value of Tilia comes back as its unsigned reading.
    m_list.setCell(
        column::Data, row,
        InsertDecimalPoint(QString::number(m_bench.link.ParamRead.ReadField[0]), dotOf(m_list, row)));
    Q_EMIT rowReadBack(row);
}

// Cancel has no effect on a read-back that goes on, but nobody is locked in behind one that cannot.
void WriteReadBack::onCancel() {
    const auto& tasks = m_bench.link.TaskQueue;
    const bool awaited = std::find(tasks.begin(), tasks.end(), ReadBackTask) != tasks.end();
    if (m_WriteWaiting && !awaited) abandon();
}

void WriteReadBack::abandon() {
    if (!ReflahDtataTimer.Enabled()) return;
    m_bench.link.emptyQueues();
    stop();
    Q_EMIT abandoned();
}

}  // namespace kelvane

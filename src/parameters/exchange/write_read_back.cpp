#include "parameters/exchange/write_read_back.h"

#include <algorithm>

#include "link/number_text.h"

namespace kelvane {

namespace {

constexpr int ReadBackProgressWidth = 329;

}  // namespace

WriteReadBack::WriteReadBack(ParameterSite& site, const ParameterScreen& screen, ProgressDialog& progress,
                             StringGrid& AdvStringGrid1)
    : m_site(site),
      m_screen(screen),
      m_progress(progress),
      m_list(AdvStringGrid1),
      m_chain(site.clock, site.link),
      m_restWatch(site.clock, m_chain, [this] {
          m_progress.tellNoAnswer(
              m_site.noAnswerText(m_list.cell(column::PrNo, static_cast<int>(RefreshRow))));
      }) {
    m_chain.next = [this] { return nextRequest(); };
    m_chain.answered = [this](const LinkRequest&) { takeReply(); };
    m_chain.ended = [this] {
        stop();
        Q_EMIT ended();
    };
    connect(&progress, &ProgressDialog::cancelled, this, &WriteReadBack::onCancel);
    connect(&progress, &ProgressDialog::stopWaiting, this, &WriteReadBack::abandon);
    connect(&site.link, &RequestScheduler::parameterReadStopped, this, &WriteReadBack::abandon);
}

void WriteReadBack::start(const std::vector<bool>& wanted) {
    m_wanted = wanted;
    const int rows = static_cast<int>(std::count(wanted.begin(), wanted.end(), true));
    RefreshRow = 0;
    m_site.link.emptyQueues();
    m_chain.start();
    m_restWatch.start();
    m_progress.glyph = ProgressGlyph::ReadDrive;
    m_progress.show(
        QStringLiteral("Reading parameters from ") % m_screen.ModelVrLabel % QStringLiteral(" ..."), rows,
        rows, ReadBackProgressWidth);
}

void WriteReadBack::stop() {
    m_chain.stop();
    m_restWatch.stop();
    m_progress.close();
    m_progress.setPosition(0);
}

std::optional<LinkRequest> WriteReadBack::nextRequest() {
    do {
        ++RefreshRow;
    } while (RefreshRow < m_wanted.size() && !m_wanted[RefreshRow]);
    if (RefreshRow >= m_wanted.size()) return std::nullopt;
    m_site.link.DriveStatus.ExceptionTextDone = 0;
    return LinkRequest{ReadBackTask,
                       QStringLiteral("FF03") % m_list.cell(column::Address, static_cast<int>(RefreshRow)) %
                           QStringLiteral("0001"),
                       Awaits::ReadDone};
}

void WriteReadBack::takeReply() {
    const int row = static_cast<int>(RefreshRow);
    m_progress.parameterDone(QStringLiteral("Process Pr ") % m_list.cell(column::PrNo, row) %
                             QStringLiteral(":  ") % m_list.cell(column::Description, row));
    m_progress.setPosition(m_progress.position + 1);
    // Kept: no sign here, a negative value of Tilia comes back as its unsigned reading.
    m_list.setCell(
        column::Data, row,
        InsertDecimalPoint(QString::number(m_site.link.ParamRead.ReadField[0]), dotOf(m_list, row)));
    Q_EMIT rowReadBack(row);
}

// Cancel has no effect on a read-back that goes on, but nobody is locked in behind one that cannot.
void WriteReadBack::onCancel() {
    if (m_chain.waitsForNothing()) abandon();
}

void WriteReadBack::abandon() {
    if (!running()) return;
    m_site.link.emptyQueues();
    stop();
    Q_EMIT abandoned();
}

}  // namespace kelvane

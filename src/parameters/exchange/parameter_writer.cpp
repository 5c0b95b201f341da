#include "parameters/exchange/parameter_writer.h"

#include <algorithm>
#include <utility>

#include "link/number_text.h"

namespace kelvane {

namespace {

constexpr char OpeningCommand[] = "FF0620050003";
constexpr char ClosingCommand[] = "FF0620050005";

const QString Cofirm = QStringLiteral("Cofirm");
const QString NoRow = QStringLiteral("- -");

}  // namespace

ParameterWriter::ParameterWriter(ParameterSite& site, const ParameterScreen& screen, ProgressDialog& progress)
    : readBack(site, screen, progress, AdvStringGrid1), m_site(site), m_chain(site.clock, site.link) {
    m_chain.next = [this] { return nextRequest(); };
    m_chain.answered = [this](const LinkRequest&) { takeAnswer(); };
    m_chain.ended = [this] { finishWrites(); };
    m_chain.alsoAnswered = [this] {
        if (m_site.link.DriveStatus.ExceptionTextDone) return true;
        m_unanswered = m_stopWanted && m_chain.waitsForNothing();
        return m_unanswered;
    };
    setWriteListHeaders(AdvStringGrid1);
    clearErrorRecord(ErrorAdvStringGrid);
    AdvStringGrid1.cellColours = [this](int column, int row) {
        return writeListColours(AdvStringGrid1, column, row);
    };
    connect(&readBack, &WriteReadBack::rowReadBack, this, [this](int row) {
        m_rowsReadBack += row;
        Q_EMIT rowReadBack(row);
    });
    connect(&readBack, &WriteReadBack::ended, this, &ParameterWriter::FormClose);
    connect(&readBack, &WriteReadBack::abandoned, this, [this] { setEnabled(true); });
}

bool ParameterWriter::isAspen() const {
    return m_site.link.DriveStatus.DriveFamily == static_cast<quint8>(Family::Aspen);
}

// ---- The list ----

void ParameterWriter::SelectWriteSource(const WriteSource& source, WriteMode mode, bool useDefaults) {
    if (takeRows(source.table->grid, mode, useDefaults, AdvStringGrid1) == 0) {
        m_site.voice.person.tell(m_site.voice.text(Message::NothingSelected), Cofirm);
        return;
    }
    m_source = source;
    m_rowsReadBack.clear();
    form.barPosition = 0;
    form.PrLabel = NoRow;
    setEnabled(true);
    setShown(true);
}

void ParameterWriter::setShown(bool on) {
    form.shown = on;
    m_site.link.Notice.TWriteCheckFormShown = on;
    m_site.link.notifyChanged();
    Q_EMIT shownChanged(on);
}

void ParameterWriter::setEnabled(bool on) {
    form.enabled = on;
    Q_EMIT changed();
}

void ParameterWriter::OKTransparentButtonClick() {
    Operator& person = m_site.voice.person;
    const int checked = checkedRows(AdvStringGrid1);
    if (checked == 0) {
        form.barPosition = 0;
        Q_EMIT changed();
        person.tell(m_site.voice.text(Message::NothingSelected), Cofirm);
        return;
    }
    m_site.whenOnLine([this, checked] { startWrites(checked); });
}

void ParameterWriter::startWrites(int checked) {
    Operator& person = m_site.voice.person;
    if (!person.yes(m_site.voice.text(Message::WriteParameters), Cofirm) || !form.shown) return;
    WriteCount = static_cast<quint16>(checked);
    m_site.link.DriveStatus.ExceptionTextDone = 0;  // of an exception before this run
    WriteRow = 0;
    m_stopWanted = m_aborted = false;
    m_rowsReadBack.clear();
    m_rowsDone = m_rowsRefused = 0;
    m_wanted.assign(static_cast<size_t>(rowCount()), false);
    for (int row = 1; row < rowCount(); ++row)
        m_wanted[static_cast<size_t>(row)] = AdvStringGrid1.checkBox(row);
    clearErrorRecord(ErrorAdvStringGrid);
    form.barMaximum = WriteCount;
    form.barPosition = 0;
    setEnabled(false);
    Q_EMIT writesBegin();
    if (form.shown) m_chain.start();  // else closed behind a box
}

// ---- The run ----

// The opening command, the checked rows, the closing command; nothing behind the last.
std::optional<LinkRequest> ParameterWriter::nextRequest() {
    for (;;) {
        if (m_stopWanted) {
            leaveTheRest();
            if (WriteRow == 0 || isAspen()) return std::nullopt;
            WriteRow = static_cast<quint16>(rowCount());
        }
        if (!passesOver()) {
            if (const auto command = nextCommand())
                return LinkRequest{WriteTask, *command, Awaits::WriteDone};
            skipRow();
        }
        if (stepRow()) return std::nullopt;
    }
}

// Rows that are not checked, and the opening command where there is none.
bool ParameterWriter::passesOver() const {
    const bool checked = WriteRow == rowCount() || (WriteRow != 0 && AdvStringGrid1.checkBox(WriteRow));
    return !checked && (WriteRow != 0 || isAspen());
}

std::optional<QString> ParameterWriter::nextCommand() {
    if (!isAspen() && WriteRow == 0) return QString::fromLatin1(OpeningCommand);
    if (!isAspen() && WriteRow == rowCount()) return QString::fromLatin1(ClosingCommand);
    std::optional<QString> command = writeCommand(AdvStringGrid1, WriteRow);
    if (!command) return std::nullopt;
    form.PrLabel = QStringLiteral("Pr. ") % AdvStringGrid1.cell(column::PrNo, WriteRow) %
                   QStringLiteral("   ") % AdvStringGrid1.cell(column::Description, WriteRow);
    Q_EMIT changed();
    return command;
}

// The rows that were not reached stay unwritten and are not read back.
void ParameterWriter::leaveTheRest() {
    for (int row = std::max<int>(WriteRow, 1); row < rowCount(); ++row)
        m_wanted[static_cast<size_t>(row)] = false;
}

// An acknowledgement, a refusal, or the end of the link's patience.
void ParameterWriter::takeAnswer() {
    DriveStatusRecord& status = m_site.link.DriveStatus;
    const bool aborted = std::exchange(m_site.link.Notice.LinkAction, quint8(0)) == 3;
    if (!std::exchange(m_unanswered, false) && WriteRow != 0 && WriteRow != rowCount()) ++m_rowsDone;
    if (status.ExceptionTextDone) recordRefusal();
    status.ExceptionTextDone = status.ExceptionPending = 0;
    if (aborted) {
        m_aborted = true;
        m_chain.stop();
        finishWrites();
        return;
    }
    stepBar();
    if (!stepRow()) return;
    m_chain.stop();
    finishWrites();
}

void ParameterWriter::recordRefusal() {
    const DriveStatusRecord& status = m_site.link.DriveStatus;
    const QString code = QString::number(status.ExceptionCode);
    if (WriteRow == 0 || WriteRow == rowCount()) {
        addErrorLine(ErrorAdvStringGrid,
                     {QStringLiteral("2005H"), QStringLiteral("Copy Mode"),
                      WriteRow == 0 ? QStringLiteral("3") : QStringLiteral("5"), code, status.ExceptionText});
        return;
    }
    addErrorLine(
        ErrorAdvStringGrid,
        {AdvStringGrid1.cell(column::PrNo, WriteRow), AdvStringGrid1.cell(column::Description, WriteRow),
         AdvStringGrid1.cell(column::Data, WriteRow), code, status.ExceptionText});
    ++m_rowsRefused;
}

// A row that cannot be sent, which only a file can hold: its value is no integer or none of a register.
void ParameterWriter::skipRow() {
    const bool number = withoutSeparatorToInt(AdvStringGrid1.cell(column::Data, WriteRow)).has_value();
    const auto doubt = doubtOf(AdvStringGrid1, WriteRow);
    const QString why =
        number && doubt && !doubt->sent ? doubt->text : m_site.voice.text(Message::ValueNotLegal);
    addErrorLine(ErrorAdvStringGrid, {AdvStringGrid1.cell(column::PrNo, WriteRow),
                                      AdvStringGrid1.cell(column::Description, WriteRow),
                                      AdvStringGrid1.cell(column::Data, WriteRow), QString(), why});
    ++m_rowsDone;
    ++m_rowsRefused;
    stepBar();
}

// True behind the last: that is the last row for Aspen, the closing command for all others.
bool ParameterWriter::stepRow() {
    const int last = isAspen() ? rowCount() - 1 : rowCount();
    if (WriteRow >= last) return true;
    ++WriteRow;
    return false;
}

void ParameterWriter::stepBar() {
    form.barPosition = std::min(form.barPosition + 1, form.barMaximum);
    Q_EMIT changed();
}

// ---- After the run ----

void ParameterWriter::finishWrites() {
    m_readBackDue = true;
    Q_EMIT runEnded(m_rowsDone - m_rowsRefused, m_rowsRefused);
    if (ErrorAdvStringGrid.RowCount() > 2) {
        errorRecordShown = true;
        Q_EMIT errorRecordWanted();
    } else {
        startReadBack();
    }
}

void ParameterWriter::errorRecordClosed() {
    clearErrorRecord(ErrorAdvStringGrid);
    errorRecordShown = false;
    if (m_readBackDue) startReadBack();
}

void ParameterWriter::startReadBack() {
    m_readBackDue = false;
    form.barPosition = 0;
    form.PrLabel = NoRow;
    Q_EMIT changed();
    readBack.start(m_wanted);
}

void ParameterWriter::closeWanted() {
    if (!writing()) return FormClose();
    const bool stop = m_site.voice.person.yes(
        QStringLiteral("Parameters are being written. Stop now and read back what was sent ?"), Cofirm);
    if (!stop || !writing()) return;
    m_stopWanted = true;
    m_chain.step();
}

void ParameterWriter::FormClose() {
    if (!form.shown) return;
    const bool running = writing() || readBack.running();
    m_chain.stop();
    if (readBack.running()) readBack.stop();
    if (running || m_aborted) m_site.link.prelude();  // nothing of the run may be answered later
    // The read-back of an aborted run used the line once more; the link is Off Line until com setup takes it
    // up.
    if (std::exchange(m_aborted, false)) m_site.link.setLamp(LampState::OffLine);
    m_site.link.Notice.LinkAction = 0;
    m_readBackDue = false;
    form.barPosition = 0;
    setEnabled(true);
    setShown(false);
    copyBack();
    AdvStringGrid1.setRowCount(2);
    Q_EMIT closed();
}

// Kept: in whatever way the list closed, also after Cancel, and so after a cancelled reset to the defaults.
void ParameterWriter::copyBack() {
    StringGrid& table = m_source.table->grid;
    const RowIndex rows(table);
    const auto target = [&](int row) { return rows.rowOf(AdvStringGrid1, row); };
    const auto copy = [&] {
        for (int row = 1; row < rowCount(); ++row) {
            const int to = AdvStringGrid1.checkBox(row) ? target(row) : -1;
            if (to > 0) table.setCell(column::Data, to, AdvStringGrid1.cell(column::Data, row));
        }
    };
    m_source.history->edit(copy);
    for (const int row : m_rowsReadBack)
        m_source.history->holds(target(row), AdvStringGrid1.cell(column::Data, row));
}

}  // namespace kelvane

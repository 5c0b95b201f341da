#include "parameters/files/transfer_dialog.h"

namespace kelvane {

namespace {

constexpr int DialogWidth = 400;
constexpr qint64 DrawEveryUs = 30'000;  // drawing it for every row would cost more than the rows

}  // namespace

TransferDialog::TransferDialog(ProgressDialog& dialog, const TickClock& clock, ProgressGlyph glyph, int rows)
    : m_dialog(dialog), m_clock(clock), m_rows(rows), m_pumpedUs(clock.nowUs()) {
    m_dialog.glyph = glyph;
}

TransferDialog::~TransferDialog() {
    m_dialog.ParaLabel.clear();
    m_dialog.setPosition(0);
    m_dialog.close();
}

TransferProgress TransferDialog::progress() {
    return {[this](const QString& InfoLabel) { m_dialog.show(InfoLabel, m_rows, m_rows, DialogWidth); },
            [this](const QString& ParaLabel) { row(ParaLabel); }};
}

void TransferDialog::row(const QString& ParaLabel) {
    m_dialog.parameterDone(ParaLabel);
    m_dialog.setPosition(m_dialog.position + 1);
    if (!m_dialog.pump || m_clock.nowUs() - m_pumpedUs < DrawEveryUs) return;
    m_dialog.pump();
    m_pumpedUs = m_clock.nowUs();
}

}  // namespace kelvane

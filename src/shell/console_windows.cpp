#include "shell/console_windows.h"

#include "console/advance_form.h"
#include "console/connection/input_time_out_form.h"
#include "shell/windows.h"

namespace kelvane {

namespace {

// A register as the table that was read from the drive knows it.
std::optional<RegisterName> parameterOf(const StringGrid& table, quint16 address) {
    const QString Address = QString::number(address, 16).toUpper().rightJustified(4, QLatin1Char('0'));
    for (int row = 1; row < table.RowCount(); ++row)
        if (table.cell(column::Address, row).compare(Address, Qt::CaseInsensitive) == 0)
            return RegisterName{table.cell(column::PrNo, row), table.cell(column::Description, row),
                                table.cell(column::Unit, row), table.cell(column::Dot, row).toInt()};
    return std::nullopt;
}

}  // namespace

std::unique_ptr<QWidget> makeAdvanceForm(Windows& w) {
    return std::make_unique<TAdvanceForm>(w.tool.console, w.looks);
}

std::unique_ptr<QWidget> makeInputTimeOut(Windows& w) {
    return std::make_unique<TInputTimeOutForm>(w.tool.console);
}

void wireAdvanceForm(Windows& w, QWidget& form) {
    auto& advance = static_cast<TAdvanceForm&>(form);
    w.tool.console.registerNames = [&w](quint16 address) {
        return parameterOf(w.tool.parameters.DriveAdvStringGrid, address);
    };
    // Its other pages only listen, or are changing what the drive runs.
    w.stopKey.add(
        form, [&w] { return w.tool.console.page == ConsolePage::Connection; },
        [&w] { w.tool.console.panel.press(DriveButton::Stop); });
    QObject::connect(&advance, &TAdvanceForm::comSetupWanted, &w, [&w] { w.showModal(w.comSetupForm); });
    QObject::connect(&advance, &TAdvanceForm::timeOutWanted, &w, [&w](TimeOutTag tag) {
        auto& dialog = w.form<TInputTimeOutForm>();
        dialog.prepare(tag);
        w.showModal(dialog);
    });
}

void openAdvanceForm(Windows& w, QWidget& form) {
    w.tool.console.opened();
    w.showModal(form);
}

}  // namespace kelvane

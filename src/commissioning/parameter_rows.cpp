#include "commissioning/parameter_rows.h"

#include "link/number_text.h"

namespace kelvane {

namespace {

constexpr quint16 SignedBit = 0x0080;
constexpr quint16 AspenTwoPlacesBit = 0x0001;

// Decimal places that an attribute word tells.
int placesOf(quint16 attribute, quint8 DriveFamily) {
    if (DriveFamily == static_cast<quint8>(Family::Aspen)) return attribute & AspenTwoPlacesBit ? 2 : 0;
    return attribute >> 8 & 3;
}

}  // namespace

ParameterRows::ParameterRows() : ParaAdvStringGrid(ColumnCount) {
    ParaAdvStringGrid.setHeaders({QStringLiteral("Pr. No"), QStringLiteral("Description"), QStringLiteral("Unit"),
                                  QStringLiteral("Data"), QStringLiteral("Default"), QStringLiteral("Min"),
                                  QStringLiteral("Max"), QStringLiteral("Dot"), QStringLiteral("MODBUS")});
}

void ParameterRows::setCount(int rows) { ParaAdvStringGrid.setRowCount(rows + 1); }

void ParameterRows::setAddress(int row, const QString& numberText, const QString& registerText) {
    ParaAdvStringGrid.setCell(PrNo, row, numberText);
    ParaAdvStringGrid.setCell(Modbus, row, registerText);
}

void ParameterRows::clear() {
    ParaAdvStringGrid.blank(0, ColumnCount - 1, 1, ParaAdvStringGrid.RowCount() - 1);
    for (int row = 1; row <= count(); ++row) ParaAdvStringGrid.setEdited(row, false);
}

void ParameterRows::store(int row, const ParamReadRecord& read, quint8 DriveFamily, Signs signs) {
    if (row < 1 || row > count()) return;
    const auto& field = read.ReadField;
    const quint16 attribute = field[3];
    const bool isSigned = signs == Signs::ByAttribute && attribute & SignedBit;
    const int places = placesOf(attribute, DriveFamily);
    const auto valueText = [&](quint16 word) {
        const int value = isSigned ? static_cast<qint16>(word) : word;
        return InsertDecimalPoint(QString::number(value), places);
    };
    StringGrid::RowFilling filling(ParaAdvStringGrid, row);
    ParaAdvStringGrid.setCell(Description, row, read.ReadName);
    ParaAdvStringGrid.setCell(Unit, row, read.ReadUnit);
    ParaAdvStringGrid.setCell(Data, row, valueText(field[0]));
    ParaAdvStringGrid.setCell(Default, row, valueText(field[4]));
    ParaAdvStringGrid.setCell(Min, row, valueText(field[2]));
    ParaAdvStringGrid.setCell(Max, row, valueText(field[1]));
    ParaAdvStringGrid.setCell(Dot, row, QString::number(places));
    ParaAdvStringGrid.setEdited(row, false);
}

std::optional<int> ParameterRows::number(Column column, int row) const {
    return withoutSeparatorToInt(text(column, row));
}

std::optional<QString> ParameterRows::word(int row) const {
    const std::optional<int> value = number(Data, row);
    if (!value || *value < -32768 || *value > 65535) return std::nullopt;
    return IntToBaseStr(*value, 16, 4);
}

std::optional<ValueEdit> ParameterRows::editOf(int row) const {
    if (row < 1 || row > count() || text(Dot, row).isEmpty()) return std::nullopt;
    ValueEdit edit;
    edit.PrInforVrLabel = text(PrNo, row) % QStringLiteral(": ") % text(Description, row) % QStringLiteral(" (") %
                          text(Min, row) % QStringLiteral(" ~ ") % text(Max, row) % QStringLiteral(" )");
    edit.UnitVrLabel = text(Unit, row);
    edit.InputOldText = edit.Text = text(Data, row);
    edit.InputDot = number(Dot, row).value_or(0);
    edit.InputDefault = number(Default, row).value_or(0);
    edit.InputMin = number(Min, row).value_or(0);
    edit.InputMax = number(Max, row).value_or(0);
    edit.fromList = edit.InputDot == 0 && edit.InputMax < 10 && edit.InputMin >= 0;
    return edit;
}

void ParameterRows::setData(int row, const QString& value) {
    if (value == text(Data, row)) return;
    ParaAdvStringGrid.setCell(Data, row, value);
    ParaAdvStringGrid.setEdited(row, true);
}

}  // namespace kelvane

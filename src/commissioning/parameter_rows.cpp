#include "commissioning/parameter_rows.h"

#include "catalogue/parameter_record.h"
#include "link/number_text.h"

namespace kelvane {

ParameterRows::ParameterRows() : ParaAdvStringGrid(ColumnCount) {
    ParaAdvStringGrid.setHeaders({QStringLiteral("Pr. No"), QStringLiteral("Description"),
                                  QStringLiteral("Unit"), QStringLiteral("Data"), QStringLiteral("Default"),
                                  QStringLiteral("Min"), QStringLiteral("Max"), QStringLiteral("Dot"),
                                  QStringLiteral("MODBUS")});
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
    const auto family = static_cast<Family>(DriveFamily);
    const quint16 attribute = signs == Signs::Never ? quint16(field[3] & ~SignedBit) : field[3];
    const int places = placesOf(family, attribute);
    const auto shown = [&](quint16 word) { return valueText(family, attribute, word, places); };
    const quint16 RowValue = field[0];
    const quint16 RowMax = field[1];
    const quint16 RowMin = field[2];
    const quint16 RowDefault = field[4];
    StringGrid::RowFilling filling(ParaAdvStringGrid, row);
    ParaAdvStringGrid.setCell(Description, row, read.ReadName);
    ParaAdvStringGrid.setCell(Unit, row, read.ReadUnit);
    ParaAdvStringGrid.setCell(Data, row, shown(RowValue));
    ParaAdvStringGrid.setCell(Default, row, shown(RowDefault));
    ParaAdvStringGrid.setCell(Min, row, shown(RowMin));
    ParaAdvStringGrid.setCell(Max, row, shown(RowMax));
    ParaAdvStringGrid.setCell(Dot, row, QString::number(places));
    ParaAdvStringGrid.setEdited(row, false);
}

std::optional<QString> ParameterRows::word(int row) const { return registerWordOf(text(Data, row)); }

std::optional<ValueTexts> ParameterRows::texts(int row) const {
    if (row < 1 || row > count() || text(Dot, row).isEmpty()) return std::nullopt;
    return ValueTexts{.number = text(PrNo, row),
                      .name = text(Description, row),
                      .unit = text(Unit, row),
                      .value = text(Data, row),
                      .defaultValue = text(Default, row),
                      .min = text(Min, row),
                      .max = text(Max, row),
                      .places = text(Dot, row).toInt()};
}

void ParameterRows::edit(int row, Operator& person) {
    const std::optional<ValueTexts> before = texts(row);
    if (!before) return;
    const std::optional<QString> value = askValue(*before, person);
    // The window may have closed, or shown another motor, meanwhile.
    if (value && text(PrNo, row) == before->number) setData(row, *value);
}

void ParameterRows::setData(int row, const QString& value) {
    if (value == text(Data, row)) return;
    ParaAdvStringGrid.setCell(Data, row, value);
    ParaAdvStringGrid.setEdited(row, true);
}

}  // namespace kelvane

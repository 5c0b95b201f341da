#include "parameters/table/parameter_table.h"

namespace kelvane {

namespace {

constexpr Rgb ChangedBackground = 0xA6CAF0;
constexpr Rgb ChangedText = 0x000000;
constexpr Rgb GroupBackground = 0x008080;
constexpr Rgb GroupText = 0xFFFFFF;

const QString& groupMark() {
    static const QString mark = QStringLiteral("*****");
    return mark;
}

void fillValues(StringGrid& grid, int row, const ParameterRecord& record,
                const std::function<QString(quint16)>& text) {
    grid.setCell(column::Data, row, text(record.ParaData));
    grid.setCell(column::Default, row, text(record.ParaDefault));
    grid.setCell(column::Min, row, text(record.ParaMin));
    grid.setCell(column::Max, row, text(record.ParaMax));
}

QString yesNo(bool yes) { return yes ? QStringLiteral("true") : QStringLiteral("false"); }

}  // namespace

ParameterTable::ParameterTable() {
    setTableHeaders(grid);
    clear();
}

void ParameterTable::clear() {
    grid.setCheckBox(0, false);
    grid.setRowCount(1);
    grid.setRowCount(2);
}

QStringList tableHeaders() {
    return {QString(),
            QStringLiteral("Pr. No"),
            QStringLiteral("MODBUS"),
            QStringLiteral("Description"),
            QStringLiteral("Unit"),
            QStringLiteral("Data"),
            QStringLiteral("Default"),
            QStringLiteral("Min"),
            QStringLiteral("Max"),
            QStringLiteral("Attribute"),
            QStringLiteral("MODBUS"),
            QStringLiteral("Dot"),
            QStringLiteral("Run Set")};
}

QStringList writeListHeaders() {
    QStringList headers = tableHeaders();
    headers[column::Attribute] = QStringLiteral("MODBUS");
    headers[column::Address].clear();
    headers[column::Dot].clear();
    return headers;
}

QStringList comparisonHeaders() { return tableHeaders().mid(0, column::Note) << QStringLiteral("Note"); }

void setTableHeaders(StringGrid& grid) {
    grid.setHeaders(tableHeaders());
    grid.addCheckBox(0, false);
}

void fillAddressCells(StringGrid& grid, int row, int G, int N) {
    const QString address = addressText(G, N);
    grid.setCell(column::MODBUS, row, address % QLatin1Char('H'));
    grid.setCell(column::Address, row, address);
}

void fillParameterRow(StringGrid& grid, int row, Family family, int G, int N, const ParameterRecord& record) {
    const StringGrid::RowFilling filling(grid, row);
    fillAddressCells(grid, row, G, N);
    grid.setCell(column::PrNo, row, parameterNumberText(family, G, N));
    grid.setCell(column::Description, row, record.ParaName);
    grid.setCell(column::Unit, row, record.ParaUnit);
    grid.setCell(column::RunSet, row, yesNo(runSetOf(record.ParaAttr)));
    grid.setCell(column::Attribute, row,
                 readOnlyOf(record.ParaAttr) ? QStringLiteral("Read-Only") : QStringLiteral("Writable"));
    const int places = placesOf(family, record.ParaAttr);
    grid.setCell(column::Dot, row, QString::number(places));
    fillValues(grid, row, record,
               [&](quint16 word) { return valueText(family, record.ParaAttr, word, places); });
    grid.addCheckBox(row, false);
    grid.setEdited(row, false);
}

void fillGroupRow(StringGrid& grid, int row, const QString& name) {
    const StringGrid::RowFilling filling(grid, row);
    for (int c = column::PrNo; c <= column::Dot; ++c)
        grid.setCell(c, row, c == column::Description ? name : groupMark());
    grid.setCell(column::RunSet, row, {});
    grid.removeCheckBox(row);
    grid.setEdited(row, false);
}

void fillReservedGroupRow(StringGrid& grid, int row) {
    fillGroupRow(grid, row, QString::fromLatin1(ReservedGroupText));
}

bool isGroupRow(const StringGrid& grid, int row) { return grid.cell(column::PrNo, row) == groupMark(); }

bool isWritable(const StringGrid& grid, int row) {
    return row > 0 && !isGroupRow(grid, row) &&
           grid.cell(column::Attribute, row) == QLatin1String("Writable");
}

int dotOf(const StringGrid& grid, int row) {
    bool ok = false;
    const int places = grid.cell(column::Dot, row).toInt(&ok);
    return ok && places >= 0 && places <= 9 ? places : 0;
}

int rowOfNumber(const StringGrid& grid, const QString& PrNo) {
    for (int row = 1; row < grid.RowCount(); ++row)
        if (grid.cell(column::PrNo, row) == PrNo) return row;
    return -1;
}

RowIndex::RowIndex(const StringGrid& grid) {
    m_rows.reserve(grid.RowCount());
    for (int row = grid.RowCount() - 1; row > 0; --row)
        if (!isGroupRow(grid, row)) m_rows.insert(key(grid, row), row);
}

int RowIndex::rowOf(const StringGrid& other, int row) const { return m_rows.value(key(other, row), -1); }

QString RowIndex::key(const StringGrid& grid, int row) {
    return grid.cell(column::PrNo, row) % u'\n' % grid.cell(column::Address, row);
}

QStringList groupNamesIn(const StringGrid& grid) {
    QStringList names;
    for (int row = 1; row < grid.RowCount(); ++row)
        if (isGroupRow(grid, row)) names << grid.cell(column::Description, row);
    return names;
}

CellColours ProcessAdvStringGridGetCellColor(const StringGrid& grid, Family family, int column, int row) {
    if (row <= 0) return {};
    if (isGroupRow(grid, row)) return {GroupText, GroupBackground};
    const bool differs = column == column::Data && family != Family::Hazel &&
                         grid.cell(column::Data, row) != grid.cell(column::Default, row);
    if (differs) return {ChangedText, ChangedBackground};
    return {};
}

}  // namespace kelvane

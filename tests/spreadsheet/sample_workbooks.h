// Workbooks that several tests save, read and damage.
#pragma once

#include "spreadsheet/biff_writer.h"
#include "spreadsheet/workbook.h"

namespace kelvane {

// A parameter table as the tool saves it: "Drive Info" and one sheet a group, titles, header rows, marked
// data.
inline Workbook parameterWorkbook(int groups, int rowsPerGroup) {
    const CellFormat plain{.text = true};
    Workbook book;
    Sheet& info = book.sheets.emplace_back();
    info.name = QStringLiteral("Drive Info");
    info.at(1, 1) = {.column = 1, .format = plain, .text = QStringLiteral("Model")};
    info.at(1, 2) = {.column = 2, .format = plain, .text = QStringLiteral("Larch")};
    info.columns[1].width = 15;
    for (int row : {6, 7, 8}) info.rows[row].hidden = true;
    for (int group = 0; group < groups; ++group) {
        Sheet& sheet = book.sheets.emplace_back();
        sheet.name = QStringLiteral("Group %1").arg(group);
        sheet.at(1, 1) = {1, {.text = true, .bold = true}, QStringLiteral("%1 - Basic").arg(group)};
        sheet.merged.push_back({1, 1, 1, 10});
        for (int column = 1; column <= 13; ++column)
            sheet.at(3, column) = {column,
                                   {.text = true, .interiorColour = TealIndex, .fontColour = WhiteIndex},
                                   QStringLiteral("Head %1").arg(column)};
        for (int row = 4; row < 4 + rowsPerGroup; ++row) {
            for (int column = 1; column <= 13; ++column)
                sheet.at(row, column) = {
                    column, plain,
                    QStringLiteral("%1.%2").arg(row * group).arg(column, 2, 10, QLatin1Char('0'))};
            sheet.at(row, 4).text = QStringLiteral("Max. Output Freq");
            if (row % 3 == 0) sheet.at(row, 6).format.interiorColour = YellowIndex;
        }
        for (int column : {11, 12, 13}) sheet.columns[column].hidden = true;
        sheet.columns[4].width = 20;
    }
    return book;
}

inline Workbook smallWorkbook() { return parameterWorkbook(1, 1); }

// Texts of every kind the format keeps apart, one a row in column 1.
inline Workbook textWorkbook() {
    Workbook book;
    Sheet& sheet = book.sheets.emplace_back();
    sheet.name = QStringLiteral("Größe Ω 漢");
    const QString texts[] = {QStringLiteral("plain"),      QStringLiteral("  blanks kept  "),
                             QStringLiteral("Größe µ"),    QStringLiteral("Ω 漢字 \U0001F600"),
                             QStringLiteral("two\nlines"), QStringLiteral("0033"),
                             QStringLiteral("=1+1"),       QString(9000, u'x'),
                             QString(5000, QChar(0x6F22))};
    int row = 0;
    for (const QString& text : texts) sheet.at(++row, 1).text = text;
    return book;
}

}  // namespace kelvane

# Says what another reader finds in an .xls file: one line a fact, fields separated by tabs.
import sys

import xlrd

KINDS = {xlrd.XL_CELL_TEXT: "text", xlrd.XL_CELL_NUMBER: "number", xlrd.XL_CELL_BLANK: "blank"}


def say(*facts):
    print(*facts, sep="\t")


def colour(index):
    return {None: "none", 64: "none", 0x7FFF: "none"}.get(index, index)


sys.stdout.reconfigure(encoding="utf-8")
book = xlrd.open_workbook(sys.argv[1], formatting_info=True)
for sheet in book.sheets():
    say("sheet", sheet.name, sheet.nrows)
    for number, info in sorted(sheet.colinfo_map.items()):
        say("column", number + 1, info.width, info.hidden)
    for number, info in sorted(sheet.rowinfo_map.items()):
        if info.hidden:
            say("hidden row", number + 1)
    for first_row, end_row, first_column, end_column in sheet.merged_cells:
        say("merged", first_row + 1, first_column + 1, end_row, end_column)
    for row in range(sheet.nrows):
        for column in range(sheet.row_len(row)):
            cell = sheet.cell(row, column)
            if cell.ctype == xlrd.XL_CELL_EMPTY:
                continue
            xf = book.xf_list[cell.xf_index]
            font = book.font_list[xf.font_index]
            fill = xf.background.pattern_colour_index if xf.background.fill_pattern == 1 else None
            say("cell", row + 1, column + 1, KINDS.get(cell.ctype, cell.ctype), book.format_map[xf.format_key].format_str,
                colour(fill), colour(font.colour_index), "bold" if font.weight == 700 else "normal",
                str(cell.value).replace("\n", "\\n"))

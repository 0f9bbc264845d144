# SPDX-License-Identifier: MIT
"""A workbook as text that a person can review: one line a cell with its value and its format.

Read with xlrd, which shares nothing with the program. `python3 workbook_dump.py FILE.xls` prints the dump.
"""
import sys

import xlrd

ALIGNMENT = {0: "", 1: "left", 2: "center", 3: "right"}
AUTOMATIC_COLOUR = 0x7FFF


def cell_name(row, column):
    letters = ""
    column += 1
    while column:
        column, digit = divmod(column - 1, 26)
        letters = chr(ord("A") + digit) + letters
    return f"{letters}{row + 1}"


def colour_name(book, index):
    if index == AUTOMATIC_COLOUR:
        return ""
    rgb = book.colour_map.get(index)
    return "#%02X%02X%02X" % rgb if rgb else f"colour {index}"


def format_name(book, xf_index):
    """Such as "Helvetica 11 bold #0000FF center 0.0%"; what is plain is left out."""
    xf = book.xf_list[xf_index]
    font = book.font_list[xf.font_index]
    number_format = book.format_map[xf.format_key].format_str
    parts = [font.name, f"{font.height / 20:g}", "bold" if font.weight >= 600 else "", colour_name(book, font.colour_index),
             ALIGNMENT.get(xf.alignment.hor_align, "?"), "wrap" if xf.alignment.text_wrapped else "",
             number_format if number_format not in ("General", "GENERAL") else ""]
    return " ".join(part for part in parts if part)


def cell_value(cell):
    if cell.ctype == xlrd.XL_CELL_TEXT:
        return '"' + cell.value.replace("\\", "\\\\").replace("\n", "\\n").replace("\r", "\\r") + '"'
    if cell.ctype == xlrd.XL_CELL_NUMBER:
        return f"{cell.value:.10g}"
    if cell.ctype == xlrd.XL_CELL_ERROR:
        return xlrd.error_text_from_code[cell.value]
    if cell.ctype == xlrd.XL_CELL_BLANK:
        return "blank"
    return f"? {cell.ctype} {cell.value!r}"


def sheet_lines(book, sheet):
    frozen = ""
    if sheet.panes_are_frozen:
        frozen = f", frozen at {cell_name(sheet.horz_split_pos, sheet.vert_split_pos)}"
    yield f"== {sheet.name}: {sheet.nrows} rows, {sheet.ncols} columns{frozen}"
    for first, info in sorted(sheet.colinfo_map.items()):
        look = format_name(book, info.xf_index) if info.xf_index != 15 else ""
        yield f"column {cell_name(0, first)[:-1]}: {info.width / 256:.2f} wide {look}".rstrip()
    for row in range(sheet.nrows):
        height = sheet.rowinfo_map.get(row)
        if height is not None and height.height_mismatch:
            yield f"row {row + 1}: {height.height / 20:g} points high"
        for column in range(sheet.row_len(row)):
            cell = sheet.cell(row, column)
            if cell.ctype == xlrd.XL_CELL_EMPTY:
                continue
            look = format_name(book, cell.xf_index) if cell.xf_index != 15 else "no format"
            yield f"{cell_name(row, column)}\t{cell_value(cell)}\t{look}"


def dump(path):
    book = xlrd.open_workbook(path, formatting_info=True)
    return "".join(line + "\n" for sheet in book.sheets() for line in sheet_lines(book, sheet))


if __name__ == "__main__":
    sys.stdout.write(dump(sys.argv[1]))

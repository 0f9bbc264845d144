#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Prints a workbook, as xlrd reads it, as JSON: its sheets with panes, widths in characters and cells."""
import json
import sys

import xlrd

KINDS = {xlrd.XL_CELL_TEXT: 'text', xlrd.XL_CELL_NUMBER: 'number', xlrd.XL_CELL_DATE: 'date',
         xlrd.XL_CELL_ERROR: 'error', xlrd.XL_CELL_BLANK: 'blank', xlrd.XL_CELL_BOOLEAN: 'boolean'}
ALIGNMENTS = ['general', 'left', 'center', 'right']
COLORS = {8: 'black', 10: 'red', 12: 'blue', 13: 'yellow', 17: 'green', 20: 'purple', 23: 'gray', 0x7FFF: 'auto'}


def look(book, xf_index):
    xf = book.xf_list[xf_index]
    font = book.font_list[xf.font_index]
    return ' '.join([font.name, f'{font.height / 20:g}', 'bold' if font.weight >= 700 else 'plain',
                     COLORS.get(font.colour_index, str(font.colour_index)), ALIGNMENTS[xf.alignment.hor_align],
                     'wrapped ' * bool(xf.alignment.text_wrapped) + book.format_map[xf.format_key].format_str])


def text(cell):
    if cell.ctype == xlrd.XL_CELL_NUMBER:
        return f'{cell.value:.15g}'
    if cell.ctype == xlrd.XL_CELL_ERROR:
        return xlrd.error_text_from_code[cell.value]
    return cell.value


def cells(book, sheet):
    for row in range(sheet.nrows):
        for column in range(sheet.row_len(row)):
            cell = sheet.cell(row, column)
            if cell.ctype != xlrd.XL_CELL_EMPTY:
                yield [row, column, KINDS[cell.ctype], text(cell), look(book, cell.xf_index)]


def main():
    book = xlrd.open_workbook(sys.argv[1], formatting_info=True, ragged_rows=True)
    json.dump([{
        'name': sheet.name,
        'frozen': [sheet.horz_split_pos, sheet.vert_split_pos] if sheet.panes_are_frozen else [0, 0],
        # The file holds pixels of a digit 7 pixels wide, with 5 pixels of padding.
        'columns': [[number, (column.width * 7 / 256 - 5) / 7, look(book, column.xf_index)]
                    for number, column in sorted(sheet.colinfo_map.items())],
        'cells': list(cells(book, sheet)),
    } for sheet in book.sheets()], sys.stdout)


main()

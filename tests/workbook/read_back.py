#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Prints what a workbook holds, as xlrd reads it: one line a sheet, column, row, cell.

    sheet NAME frozen ROWS COLUMNS
    column NUMBER width WIDTH xf FORMAT
    row NUMBER height POINTS              (heights set by hand only)
    cell ROW COLUMN KIND VALUE | FORMAT

VALUE is written as JSON, FORMAT as font, size, bold, colour index, alignment, wrap, number format.
"""
import json
import sys

import xlrd

KINDS = {xlrd.XL_CELL_TEXT: 'text', xlrd.XL_CELL_NUMBER: 'number', xlrd.XL_CELL_DATE: 'date',
         xlrd.XL_CELL_ERROR: 'error', xlrd.XL_CELL_BLANK: 'blank', xlrd.XL_CELL_BOOLEAN: 'boolean'}
ALIGNMENTS = ['general', 'left', 'center', 'right']


def look(book, xf_index):
    xf = book.xf_list[xf_index]
    font = book.font_list[xf.font_index]
    return ' '.join([font.name, f'{font.height / 20:g}', 'bold' if font.weight >= 700 else 'plain',
                     str(font.colour_index), ALIGNMENTS[xf.alignment.hor_align],
                     'wrap' if xf.alignment.text_wrapped else 'line', book.format_map[xf.format_key].format_str])


def main():
    book = xlrd.open_workbook(sys.argv[1], formatting_info=True, ragged_rows=True)
    for sheet in book.sheets():
        frozen = f'{sheet.horz_split_pos} {sheet.vert_split_pos}' if sheet.panes_are_frozen else '0 0'
        print(f'sheet {sheet.name} frozen {frozen}')
        for number, column in sorted(sheet.colinfo_map.items()):
            print(f'column {number} width {column.width} {look(book, column.xf_index)}')
        for number, row in sorted(sheet.rowinfo_map.items()):
            if row.height_mismatch:
                print(f'row {number} height {row.height / 20:g}')
        for r in range(sheet.nrows):
            for c in range(sheet.row_len(r)):
                cell = sheet.cell(r, c)
                if cell.ctype != xlrd.XL_CELL_EMPTY:
                    value = xlrd.error_text_from_code[cell.value] if cell.ctype == xlrd.XL_CELL_ERROR else cell.value
                    print(f'cell {r} {c} {KINDS[cell.ctype]} {json.dumps(value)} | {look(book, cell.xf_index)}')


main()

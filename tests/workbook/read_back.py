#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Prints what a workbook holds, as xlrd reads it: one line a sheet, column, row, cell.

    sheet NAME frozen ROWS COLUMNS
    column NUMBER width WIDTH xf FORMAT
    row NUMBER height POINTS              (heights set by hand only)
    cell ROW COLUMN KIND VALUE | FORMAT

then one line for each picture of the workbook and one for each place where it shows, which xlrd leaves out:

    picture NUMBER KIND BYTES uses COUNT
    shape ID of picture NUMBER from ROW COLUMN to ROW+OFFSET COLUMN+OFFSET

VALUE is written as JSON, FORMAT as font, size, bold, colour index, alignment, wrap, number format.
"""
import json
import struct
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


def records(stream):
    at = 0
    while at + 4 <= len(stream):
        kind, size = struct.unpack_from('<HH', stream, at)
        yield kind, stream[at + 4:at + 4 + size]
        at += 4 + size


def office_art(data):
    """Kind and content of each record, containers opened."""
    at = 0
    while at < len(data):
        version, kind, size = struct.unpack_from('<HHI', data, at)
        content = data[at + 8:at + 8 + size]
        assert len(content) == size, f'record {kind:#x} is cut short'
        if version & 15 == 15:
            yield from office_art(content)
        else:
            yield kind, content
        at += 8 + size


def drawings(stream):
    """The OfficeArt data of the workbook, then of each sheet."""
    group, sheets, current = b'', [], None
    for kind, data in records(stream):
        if kind == 0x0809:
            sheets.append(b'')
        if kind in (0x00EB, 0x00EC, 0x003C):
            current = kind if kind != 0x003C else current
            group += data if current == 0x00EB else b''
            sheets[-1] += data if current == 0x00EC else b''
        else:
            current = None
    return [group] + sheets[1:]


def print_pictures(stream):
    group, *sheets = drawings(stream)
    number = 0
    for kind, data in office_art(group):
        if kind == 0xF007:
            number += 1
            picture = data[36 + 8 + 17:]
            name = 'PNG' if picture.startswith(b'\x89PNG') else 'JPEG' if picture.startswith(b'\xff\xd8') else '?'
            print(f'picture {number} {name} {len(picture)} uses {struct.unpack_from("<I", data, 24)[0]}')
    for sheet in sheets:
        for kind, data in office_art(sheet):
            if kind == 0xF00A:
                shape = struct.unpack_from('<I', data)[0]
            elif kind == 0xF00B:
                number = dict(struct.iter_unpack('<HI', data))[0x4104]
            elif kind == 0xF010:
                _, left, dx, top, dy, right, dx2, bottom, dy2 = struct.unpack('<9H', data)
                assert (dx, dy) == (0, 0)
                print(f'shape {shape} of picture {number} from {top} {left} to {bottom}+{dy2} {right}+{dx2}')


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
    with open(sys.argv[1], 'rb') as file:
        container = xlrd.compdoc.CompDoc(file.read())
    stream, start, size = container.locate_named_stream('Workbook')
    print_pictures(stream[start:start + size])


main()

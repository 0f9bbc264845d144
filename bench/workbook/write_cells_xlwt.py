#!/usr/bin/python3
# SPDX-License-Identifier: MIT
"""Writes the cells of bench_cells.h with xlwt and prints the seconds of processor time that they took:
write_cells_xlwt.py FILE.xls"""
import sys
import time

import xlwt

ROWS, COLUMNS, POOL_SIZE = 50_000, 30, 60_000


def main():
    pool = [f"Scene {i % 977} Take {i}.mov" for i in range(POOL_SIZE)]
    started = time.process_time()
    book = xlwt.Workbook()
    style = xlwt.easyxf("font: name Helvetica, height 220, color blue")
    sheet = book.add_sheet("All Reels")
    number = 0
    for row in range(ROWS):
        for column in range(COLUMNS):
            sheet.write(row, column, number * 0.37 if column % 3 == 2 else pool[number * 7919 % POOL_SIZE], style)
            number += 1
    book.save(sys.argv[1])
    print(time.process_time() - started)


if __name__ == "__main__":
    main()

# SPDX-License-Identifier: MIT
"""Compares the workbooks of the bundled examples with the dumps that stand beside this file under golden/.

golden_test.py PROGRAM            fails on the first difference and shows it
golden_test.py PROGRAM --update   writes the dumps anew; read the difference before you commit it
"""
import difflib
import shlex
import subprocess
import sys
import tempfile
from pathlib import Path

import workbook_dump

HERE = Path(__file__).resolve().parent
EXAMPLES = HERE.parent.parent / "examples"

# The dump's name, the example, and the options of the report.
CASES = [line.split("|") for line in (HERE / "golden" / "cases.txt").read_text().splitlines()
         if line and not line.startswith("#")]


def report_dump(program, example, options, folder):
    report = Path(folder) / "report.xls"
    subprocess.run([program, "report", EXAMPLES / example, "-o", report, "--quiet", *shlex.split(options)],
                   check=True, stderr=subprocess.DEVNULL)
    return workbook_dump.dump(report)


def main():
    program = sys.argv[1]
    update = "--update" in sys.argv
    differences = 0
    with tempfile.TemporaryDirectory() as folder:
        for name, example, options in (tuple(field.strip() for field in case) for case in CASES):
            golden = HERE / "golden" / f"{name}.txt"
            actual = report_dump(program, example, options, folder)
            if update:
                golden.write_text(actual)
                continue
            expected = golden.read_text()
            if actual != expected:
                differences += 1
                sys.stdout.writelines(difflib.unified_diff(expected.splitlines(True), actual.splitlines(True),
                                                           f"golden/{name}.txt", "this program", n=1))
    print(f"{len(CASES)} workbooks compared, {differences} differ")
    sys.exit(1 if differences or not CASES else 0)


if __name__ == "__main__":
    main()

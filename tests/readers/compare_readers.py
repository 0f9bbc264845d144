# SPDX-License-Identifier: MIT
"""Lets four foreign readers read workbooks of made-up documents: compare_readers.py PROGRAM [SEED [COUNT]]

Every reader must find the same sheets and in every cell the same text or number. The documents of a failure stay.
"""
import math
import random
import shutil
import subprocess
import sys
import tempfile
import time
from pathlib import Path

from foreign_readers import READERS
from random_timelines import RandomTimeline

MOST_SHOWN = 5  # differences of one workbook


def write_workbooks(program, seed, count, folder):
    """The paths of the workbooks; the document of each lies beside it."""
    paths = []
    for number in range(count):
        timeline = RandomTimeline(random.Random(f"{seed} {number}"))
        document = folder / f"cut-{number}.xml"
        document.write_text(timeline.document(), encoding="utf-8")
        options = timeline.options()
        document.with_suffix(".options").write_text(repr(options))
        path = document.with_suffix(".xls")
        run = subprocess.run([program, "report", document, "-o", path, "--quiet", *options], capture_output=True,
                             text=True)
        if run.returncode != 0:
            sys.exit(f"{document} {options}: {run.stderr}")
        paths.append(path)
    return paths


def is_same(value, other):
    if isinstance(value, float) and isinstance(other, float):
        return math.isclose(value, other, rel_tol=1e-14)
    return value == other


def differences(expected, found):
    if isinstance(expected, str) or isinstance(found, str):
        yield found
    elif list(found) != list(expected):
        yield f"sheets {list(found)}, not {list(expected)}"
    else:
        for name, cells in expected.items():
            for place in sorted(cells.keys() | found[name].keys()):
                if not is_same(cells.get(place), found[name].get(place)):
                    yield f"{name} {place}: {found[name].get(place)!r:.200}, not {cells.get(place)!r:.200}"


def main():
    program = sys.argv[1]
    seed = int(sys.argv[2]) if len(sys.argv) > 2 else random.randrange(1_000_000)
    count = int(sys.argv[3]) if len(sys.argv) > 3 else 200
    print(f"seed {seed}", flush=True)
    folder = Path(tempfile.mkdtemp(prefix="readers-"))
    paths = write_workbooks(program, seed, count, folder)
    expected = None
    failed_in_all = 0
    for name, read in READERS.items():
        begin = time.monotonic()
        own = folder / name
        own.mkdir()
        books = read(paths, own)
        expected = expected or books
        failed = 0
        for path in paths:
            found = list(differences(expected[path], books[path]))
            failed += bool(found)
            for difference in found[:MOST_SHOWN]:
                print(f"{name}: {path}: {difference}")
        print(f"{name}: {count - failed} passed, {failed} failed ({time.monotonic() - begin:.0f} s)", flush=True)
        failed_in_all += failed
    if failed_in_all or count == 0:
        sys.exit(1)
    shutil.rmtree(folder)


if __name__ == "__main__":
    main()

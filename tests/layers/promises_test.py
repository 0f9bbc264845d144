# SPDX-License-Identifier: MIT
"""Each promise of the README names a test that is there: promises_test.py PROJECT"""
import re
import sys
from pathlib import Path

PROMISING = ("What it reads, and what not", "What it costs, and what it promises")


def promises_of(readme):
    """The items of the lists below the headings that promise."""
    for section in re.split(r"^## ", readme, flags=re.MULTILINE):
        if section.startswith(PROMISING):
            yield from re.findall(r"^- (.*?)(?=^- |^$)", section, flags=re.MULTILINE | re.DOTALL)


def faults_of(promise, tests):
    named = re.findall(r"`((?:\w+/)+\w+\.(?:cpp|py))`", promise)
    if not named:
        yield f"no test holds: {promise.strip()}"
    yield from (f"{test} is not there, and is to hold: {promise.strip()}" for test in named
                if not (tests / test).is_file())


def main():
    project = Path(sys.argv[1])
    promises = list(promises_of((project / "README.md").read_text(encoding="utf-8")))
    faults = [fault for promise in promises for fault in faults_of(promise, project / "tests")]
    print("\n".join(faults) or f"{len(promises)} promises name their tests")
    sys.exit(1 if faults or len(promises) < 10 else 0)


if __name__ == "__main__":
    main()

# SPDX-License-Identifier: MIT
"""A folder of its own for each test, with the program run in it as a user would."""
import os
import subprocess
import tempfile
import unittest
from pathlib import Path


def names_in(folder):
    return sorted(path.name for path in folder.iterdir())


class ReportRuns(unittest.TestCase):
    """`program` is set by the test file. The report goes to desk/Reel 1.xls; temporary files go to tmp/."""
    program = None

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.temporary = self.folder / "tmp"
        self.desk = self.folder / "desk"
        for new in (self.temporary, self.desk):
            new.mkdir()
        self.workbook = self.desk / "Reel 1.xls"
        self.document = self.folder / "cut.xml"

    def command(self, document, *options):
        """`document`: its text, or nothing for what self.document holds already."""
        if document is not None:
            self.document.write_text(document, encoding="utf-8")
        return [self.program, "report", self.document, "-o", self.workbook, *options]

    def is_sanitized(self):
        """Whether the program is built with a sanitizer, whose own memory is not to be measured."""
        return b"__asan_init" in Path(self.program).read_bytes()

    def environment(self, **more):
        return {**os.environ, "TMPDIR": str(self.temporary), "XDG_CACHE_HOME": str(self.folder / "cache"),
                **more}

    def report(self, document, *options, code=0, **environment):
        run = subprocess.run(self.command(document, *options), env=self.environment(**environment),
                             capture_output=True, text=True, timeout=300)
        self.assertEqual(run.returncode, code, run.stderr)
        self.assertEqual(names_in(self.temporary), [], "something is left in the temporary folder")
        return run

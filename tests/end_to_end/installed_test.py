# SPDX-License-Identifier: MIT
"""What `cmake --install` puts into a folder runs from there: installed_test.py CMAKE BUILD window|no-window"""
import os
import signal
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

import xlrd

from made_media import make_film
from made_timelines import timeline

CMAKE, BUILD, WINDOW = (sys.argv.pop(1) for _ in range(3))
PATIENCE = 120  # seconds; the sanitizers are slow


def names_below(folder):
    return {path.relative_to(folder).as_posix() for path in folder.rglob("*") if path.is_file()}


class Installed(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = Path(folder.name)
        cls.prefix = cls.folder / "first place"
        subprocess.run([CMAKE, "--install", BUILD, "--prefix", cls.prefix], check=True, capture_output=True)
        cls.prefix = cls.prefix.rename(cls.folder / "moved")  # an installation may be moved as a whole
        cls.film = cls.folder / "media" / "film.mov"
        make_film(cls.film, frames=30)
        cls.document = cls.folder / "cut.xml"
        cls.document.write_text(timeline([("Opening", cls.film, 5)]), encoding="utf-8")

    def run_program(self, *arguments):
        run = subprocess.run([self.prefix / "bin" / "tallyframe", *arguments], capture_output=True, text=True,
                             timeout=PATIENCE, cwd=self.folder,
                             env={**os.environ, "XDG_CACHE_HOME": str(self.folder / "cache")})
        self.assertEqual(run.returncode, 0, run.stderr)
        return run.stdout

    def test_it_lists(self):
        self.assertIn("Reel 1", self.run_program("list", self.document))

    def test_it_reports_with_pictures_of_the_media_and_placeholders(self):
        workbook = self.folder / "cut.xls"
        self.run_program("report", self.document, "-o", workbook, "--thumbnails=160", "--keep-thumbnails", "--quiet")
        self.assertEqual(xlrd.open_workbook(workbook).sheet_by_name("All Reels").nrows, 2)
        self.assertEqual(len(list((self.folder / "cut thumbnails").iterdir())), 1)
        installed = names_below(self.prefix / "share" / "tallyframe")
        self.assertEqual(installed, {"Missing.png", "Problem.png"})

    @unittest.skipUnless(WINDOW == "window", "built without the window")
    def test_its_window_opens_from_the_command_line(self):
        settings = self.folder / "config" / "Tallyframe" / "tallyframe.ini"
        environment = {**os.environ, "QT_QPA_PLATFORM": "offscreen", "XDG_CONFIG_HOME": str(self.folder / "config")}
        run = subprocess.Popen([self.prefix / "bin" / "tallyframe", self.document], env=environment,
                               stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
        deadline = time.monotonic() + PATIENCE
        while not (settings.exists() and self.document.name in settings.read_text()) \
                and time.monotonic() < deadline and run.poll() is None:
            time.sleep(0.05)
        run.send_signal(signal.SIGTERM)
        _, error = run.communicate(timeout=PATIENCE)
        self.assertEqual(run.returncode, 0, error)
        self.assertIn(self.document.name, settings.read_text(), "the window did not open the document")

    @unittest.skipUnless(WINDOW == "window", "built without the window")
    def test_the_desktop_finds_its_entry_and_icons(self):
        shared = names_below(self.prefix / "share")
        self.assertIn("applications/tallyframe.desktop", shared)
        for side in (16, 32, 48, 128, 256, 512):
            self.assertIn(f"icons/hicolor/{side}x{side}/apps/tallyframe.png", shared)
        self.assertIn("icons/hicolor/scalable/apps/tallyframe.svg", shared)


if __name__ == "__main__":
    unittest.main()

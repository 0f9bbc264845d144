# SPDX-License-Identifier: MIT
"""The window's program as a desktop starts and ends it: program_test.py PROGRAM TALLYFRAME MAKE_TIMELINE"""
import os
import re
import signal
import subprocess
import sys
import tempfile
import time
import unittest
from pathlib import Path

PROGRAM, COMMAND_LINE, MAKE_TIMELINE = (Path(sys.argv.pop(1)) for _ in range(3))
PATIENCE = 120  # seconds; the sanitizers are slow


def wait_for(condition):
    deadline = time.monotonic() + PATIENCE
    while not condition() and time.monotonic() < deadline:
        time.sleep(0.05)
    return condition()


class Program(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)
        self.settings = self.folder / "Tallyframe" / "tallyframe.ini"
        self.document = self.folder / "cut.xml"
        self.environment = {**os.environ, "QT_QPA_PLATFORM": "offscreen", "XDG_CONFIG_HOME": str(self.folder)}

    def write_document(self, clips):
        self.document.write_bytes(subprocess.run([sys.executable, MAKE_TIMELINE, str(clips)], check=True,
                                                 capture_output=True).stdout)

    def has_opened_the_document(self):
        return self.settings.exists() and "recent_documents" in self.settings.read_text() \
            and self.document.name in self.settings.read_text()

    def test_it_opens_the_document_it_is_given_and_ends_when_it_is_asked_to(self):
        self.write_document(20)
        for program in (PROGRAM, COMMAND_LINE):  # the command line becomes the window for a document alone
            for number in (signal.SIGTERM, signal.SIGINT):
                self.settings.unlink(missing_ok=True)
                run = subprocess.Popen([program, self.document], env=self.environment, stdout=subprocess.DEVNULL,
                                       stderr=subprocess.PIPE)
                self.assertTrue(wait_for(self.has_opened_the_document), program)
                run.send_signal(number)
                _, error = run.communicate(timeout=PATIENCE)
                self.assertEqual(run.returncode, 0, error)
                self.assertIn("geometry", self.settings.read_text(), "closed, not killed")

    def test_it_answers_and_complains_without_a_display(self):
        without_display = {name: value for name, value in self.environment.items()
                           if name not in ("DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM")}
        for arguments, code, answer, complaint in (
                (["--help"], 0, r"tallyframe-window \[DOCUMENT\]\n", r""),
                (["--version"], 0, r"tallyframe-window [\d.]+\n", r""),
                (["--fast"], 2, r"", r'tallyframe-window: There is no option "--fast"\. .*\n'),
                (["a.xml", "b.xml"], 2, r"", r"tallyframe-window: One document can be opened at a time\. .*\n")):
            run = subprocess.run([PROGRAM, *arguments], env=without_display, capture_output=True, text=True,
                                 timeout=PATIENCE)
            self.assertEqual(run.returncode, code, arguments)
            self.assertRegex(run.stdout, "^" + answer, arguments)
            self.assertRegex(run.stderr, "^" + complaint + "$", arguments)

    def test_it_ends_in_the_middle_of_a_run(self):
        self.write_document(50_000)
        said = self.folder / "said.txt"
        with open(said, "wb") as out:
            run = subprocess.Popen([PROGRAM, self.document], env=self.environment, stdout=out,
                                   stderr=subprocess.DEVNULL)
        self.assertTrue(wait_for(lambda: b"Analyzing Clips" in said.read_bytes()[:1000]))
        time.sleep(0.3)  # the progress sheet opens
        run.send_signal(signal.SIGTERM)
        self.assertEqual(run.wait(timeout=PATIENCE), 0)

    def test_it_tells_task_bars_how_far_a_run_is(self):
        self.write_document(20_000)
        script = """
            dbus-monitor --session "interface='com.canonical.Unity.LauncherEntry'" & monitor=$!
            sleep 1; "$0" "$1" >/dev/null & program=$!
            read -r _; kill $program $monitor; wait"""
        run = subprocess.Popen(["dbus-run-session", "--", "sh", "-c", script, PROGRAM, self.document],
                               env=self.environment, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                               stderr=subprocess.DEVNULL, text=True)
        self.assertTrue(wait_for(self.has_opened_the_document))
        said, _ = run.communicate("\n", timeout=PATIENCE)
        self.assertIn('string "application://tallyframe.desktop"', said)
        shares = [float(share) for share in re.findall(r'"progress"\s+variant\s+double (\S+)', said)]
        self.assertTrue(any(0 < share <= 1 for share in shares), shares)
        self.assertEqual(re.findall(r'"progress-visible"\s+variant\s+boolean (\w+)', said)[-1], "false")


if __name__ == "__main__":
    unittest.main()

# SPDX-License-Identifier: MIT
"""Runs that are stopped at random moments: signals_test.py PROGRAM FAILING_DISK [SEED]

Whenever a signal comes, the older workbook is whole or the new one is. Only a run that is killed leaves temporary
files, and they disturb no later one.
"""
import random
import re
import shutil
import signal
import subprocess
import sys
import time
import unittest
from pathlib import Path

from made_timelines import timeline
from report_runs import ReportRuns, names_in

PROGRAM, FAILING_DISK = sys.argv[1:3]
SEED = int(sys.argv[3]) if len(sys.argv) > 3 else random.randrange(1_000_000)
RUNS = 200
STOPPED = 130
SIGNALS = [signal.SIGINT, signal.SIGTERM, signal.SIGKILL]
SLOW_DISK = {"LD_PRELOAD": FAILING_DISK, "DISK_FAULT": "slow", "ASAN_OPTIONS": "verify_asan_link_order=0"}
LEFT_BY_THE_KILLED = re.compile(r"\.workbook-\d+-\d+\.tmp|\.thumbnails\.\w{6}|tallyframe\.\w{6}")


def offline_clips(count):
    return timeline([(f"Clip {i}", f"/media/{i}.mov", i) for i in range(count)])


def bytes_read(accounts):
    return int(re.search(r"rchar: (\d+)", accounts.read_text())[1])


# Name, document, options, environment.
KINDS_OF_RUN = [
    ("plain", offline_clips(2000), [], {}),
    ("slow disk", offline_clips(500), [], SLOW_DISK),
    ("pictures", offline_clips(8), ["--thumbnails"], {}),
    ("pictures kept", offline_clips(8), ["--thumbnails", "--keep-thumbnails"], SLOW_DISK),
]


class Signals(ReportRuns):
    program = PROGRAM

    def start(self, options, environment):
        return subprocess.Popen(self.command(None, "--quiet", *options), env=self.environment(**environment),
                                stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)

    def clear_desk(self, old):
        for folder in (self.desk, self.temporary):
            shutil.rmtree(folder)
            folder.mkdir()
        self.workbook.write_bytes(old)

    def undisturbed_run(self, options, environment):
        """The workbook that a run writes, and how long it takes."""
        begin = time.monotonic()
        run = self.start(options, environment)
        _, error = run.communicate(timeout=300)
        self.assertEqual(run.returncode, 0, error)
        return self.workbook.read_bytes(), time.monotonic() - begin

    def stopped_run(self, number, delay, options, environment):
        run = self.start(options, environment)
        time.sleep(delay)
        run.send_signal(number)
        _, error = run.communicate(timeout=300)
        return run.returncode, error

    def check(self, number, code, error, old, new):
        """What the desk holds; answers whether the new workbook is there."""
        content = self.workbook.read_bytes()
        self.assertIn(content, (old, new), "neither the older workbook nor the new one")
        if code == STOPPED:
            self.assertEqual(error, "tallyframe: stopped. The workbook was not written.\n")
        else:
            self.assertIn(code, (0, -number), error)
        if number != signal.SIGKILL:
            self.assertEqual(content, new if code == 0 else old)
        left = {name for name in names_in(self.desk) + names_in(self.temporary)
                if name not in ("Reel 1.xls", "Reel 1 thumbnails")}
        if number == signal.SIGKILL:
            left = {name for name in left if not LEFT_BY_THE_KILLED.fullmatch(name)}
        self.assertEqual(left, set(), error)
        pictures = self.desk / "Reel 1 thumbnails"
        if pictures.exists() and number != signal.SIGKILL:  # which may come between the pictures and the workbook
            self.assertEqual((len(names_in(pictures)), content), (8, new))
        return content == new

    def test_a_signal_at_any_moment(self):
        random_numbers = random.Random(SEED)
        for kind, document, options, environment in KINDS_OF_RUN:
            self.document.write_text(document)
            new, _ = self.undisturbed_run(options, environment)
            _, duration = self.undisturbed_run(options, environment)
            self.document.write_text(offline_clips(3))
            old, _ = self.undisturbed_run([], {})
            self.assertNotEqual(old, new)
            self.document.write_text(document)
            finished = 0
            for i in range(RUNS // len(KINDS_OF_RUN)):
                number = SIGNALS[i % len(SIGNALS)]
                delay = random_numbers.uniform(0, 1.1 * duration)
                with self.subTest(kind=kind, signal=number.name, after=f"{delay:.4f} s of {duration:.4f}", seed=SEED):
                    self.clear_desk(old)
                    finished += self.check(number, *self.stopped_run(number, delay, options, environment), old, new)
            print(f"{kind}: {i + 1} runs of {duration * 1000:.0f} ms, {finished} came to their end")

    def test_what_killed_runs_leave_disturbs_no_later_one(self):
        for kind, document, options, environment in KINDS_OF_RUN:
            self.document.write_text(document)
            new, duration = self.undisturbed_run(options, environment)
            for part in range(1, 10):
                self.stopped_run(signal.SIGKILL, duration * part / 10, options, environment)
            self.workbook.unlink()
            self.assertEqual(self.undisturbed_run(options, environment)[0], new, kind)

    def test_loading_is_stopped_where_it_is(self):
        document = offline_clips(30_000)
        damaged = document.replace("Clip 15000", "Clip \x01 15000", 1)
        for text, times_read in ((document, 0.3), (damaged, 0.3), (damaged, 1.3)):  # the second time is for the repair
            with self.subTest(is_damaged=text is damaged, times_read=times_read):
                self.document.write_text(text)
                run = subprocess.Popen([self.program, "list", self.document], env=self.environment(),
                                       stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
                accounts = Path(f"/proc/{run.pid}/io")
                while run.poll() is None and bytes_read(accounts) < times_read * len(text):
                    time.sleep(0.0005)
                run.send_signal(signal.SIGINT)
                out, _ = run.communicate(timeout=300)
                self.assertEqual((run.returncode, out), (STOPPED, ""))

    def test_a_reader_that_goes_away_stops_nothing(self):
        run = subprocess.Popen(self.command(offline_clips(2000)), env=self.environment(), stdout=subprocess.PIPE,
                               stderr=subprocess.PIPE)
        run.stdout.close()
        error = run.stderr.read()
        run.stderr.close()
        self.assertEqual(run.wait(timeout=300), 0, error)
        self.assertEqual(names_in(self.desk), ["Reel 1.xls"])

    def test_a_signal_that_is_ignored_stays_so(self):
        def ignore():
            signal.signal(signal.SIGHUP, signal.SIG_IGN)
        run = subprocess.Popen(self.command(offline_clips(2000), "--quiet"), env=self.environment(),
                               stderr=subprocess.PIPE, preexec_fn=ignore)
        for _ in range(20):
            time.sleep(0.005)
            run.send_signal(signal.SIGHUP)
        _, error = run.communicate(timeout=300)
        self.assertEqual(run.returncode, 0, error)


if __name__ == "__main__":
    print(f"seed {SEED}")
    unittest.main(argv=sys.argv[:1])

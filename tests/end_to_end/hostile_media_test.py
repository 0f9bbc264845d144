# SPDX-License-Identifier: MIT
"""Reports of media that was made to harm whoever reads it: hostile_media_test.py PROGRAM

Whatever a file does, the workbook comes, with the tags and pictures of all other files, and says what it lacks.
"""
import os
import signal
import struct
import subprocess
import sys
import time
import unittest
import zlib
from pathlib import Path

import xlrd

from made_media import make_film, make_song
from made_timelines import timeline
from report_runs import ReportRuns, names_in

PROGRAM = sys.argv.pop(1)
LIBRARIES_FOR_MEDIA = ("libavformat", "libavcodec", "libswscale", "libtag", "libturbojpeg")


def atom(kind, content):
    return struct.pack(">I4s", 8 + len(content), kind) + content


def nested_atoms(depth):
    """moov in moov, to the size of each of them."""
    whole = 8 * depth
    return atom(b"ftyp", b"M4A \0\0\0\0") + b"".join(struct.pack(">I4s", whole - 8 * i, b"moov") for i in range(depth))


def synchsafe(number):
    return bytes(number >> shift & 127 for shift in (21, 14, 7, 0))


def id3(frames):
    return b"ID3\x04\0\0" + synchsafe(len(frames)) + frames


def id3_frame(kind, content, flags=b"\0\0"):
    return kind + synchsafe(len(content)) + flags + content


def compressed_frame(kind, content):
    return id3_frame(kind, synchsafe(min(len(content), 2 ** 28 - 1)) + zlib.compress(content, 9), b"\0\x09")


def zeros_compressed(size):
    compressor = zlib.compressobj(9)
    piece = bytes(1 << 20)
    return b"".join(compressor.compress(piece) for _ in range(size >> 20)) + compressor.flush()


def nested_chapters(depth, wrap):
    content = b""
    for _ in range(depth):
        content = wrap(b"CHAP", b"c\0" + bytes(16) + content)
    return id3(content)


def bomb():
    return id3(id3_frame(b"TIT2", synchsafe(2 ** 28 - 1) + zeros_compressed(1 << 30), b"\0\x09"))


def helpers_of(process):
    """The helpers that a process has started. The leak sanitizer starts a process too, whose end it waits for."""
    children = Path(f"/proc/{process}/task/{process}/children").read_text().split()
    return [int(child) for child in children
            if Path(f"/proc/{child}/comm").read_text().startswith("tallyframe-medi")]  # 15 letters are kept


class HostileMedia(ReportRuns):
    program = PROGRAM

    def setUp(self):
        super().setUp()
        self.media = self.folder / "media"
        self.song = self.media / "song.mp3"
        self.film = self.media / "film.mov"
        make_song(self.song)
        make_film(self.film, frames=60)

    def titles(self, run_rows):
        sheet = xlrd.open_workbook(self.workbook).sheet_by_name("All Reels")
        column = sheet.row_values(0).index("Song Title")
        return [sheet.cell_value(row, column) for row in range(1, run_rows + 1)]

    def hostile(self, name, content=b"", size=None):
        path = self.media / name
        path.write_bytes(content)
        if size is not None:
            os.truncate(path, size)
        return path

    def test_no_tags_do_harm(self):
        for name, content, size in [
                ("atoms.m4a", nested_atoms(60_000), None),
                ("chapters.mp3", nested_chapters(20_000, id3_frame), None),
                ("packed chapters.mp3", nested_chapters(400, compressed_frame), None),
                ("bomb.mp3", bomb(), None),
                ("zeros.mp3", b"", 1 << 30)]:
            with self.subTest(name):
                hostile = self.hostile(name, content, size)
                begin = time.monotonic()
                run = self.report(timeline([], [("A", self.song, 0), ("B", hostile, 0), ("C", self.song, 0)]), "--quiet")
                self.assertEqual(self.titles(3), ["Light", "", "Light"])
                self.assertIn(run.stderr.splitlines()[1:],
                              ([], [f"tallyframe: The tags of 1 media file could not be read ({hostile})."]))
                print(f"{name}: {time.monotonic() - begin:.1f} s, {run.stderr.splitlines()[1:]}", file=sys.stderr)

    def test_no_picture_does_harm(self):
        for name, content, size in [
                ("zeros.h264", b"", 1 << 30),
                ("zeros.mov", b"", 1 << 30),
                ("zeros.mp3", b"", 1 << 30),
                ("atoms.mov", nested_atoms(60_000), None),
                ("bomb.mp3", bomb(), None)]:
            with self.subTest(name):
                hostile = self.hostile(name, content, size)
                begin = time.monotonic()
                run = self.report(timeline([("A", self.film, 5), ("B", hostile, 5), ("C", self.film, 6)]), "--quiet",
                                  "--thumbnails=160")
                self.assertEqual(run.stderr.splitlines()[1:],
                                 [f"tallyframe: 1 media file could not be read ({hostile}).",
                                  "tallyframe: 1 row shows a placeholder, because its media could not be read (B, row 3)."])
                print(f"{name}: {time.monotonic() - begin:.1f} s", file=sys.stderr)

    def test_what_is_no_file_is_not_waited_for(self):
        pipe = self.media / "pipe.mp3"
        os.mkfifo(pipe)
        for path in ("/proc/kmsg", "/dev/zero", pipe):
            self.report(timeline([("A", path, 5)], [("B", path, 0)]), "--quiet", "--thumbnails=160")

    def test_media_is_opened_for_reading_alone(self):
        self.song.chmod(0o444)
        before = self.song.stat()
        self.report(timeline([], [("A", self.song, 0)]), "--quiet")
        self.assertEqual(self.titles(1), ["Light"])
        self.assertEqual(self.song.stat().st_mtime_ns, before.st_mtime_ns)

    def test_the_programs_themselves_are_linked_with_no_library_for_media(self):
        build = Path(self.program).parent
        for program in ("tallyframe", "tallyframe-window"):
            if not (build / program).exists():
                continue
            linked = subprocess.run(["ldd", build / program], check=True, capture_output=True, text=True).stdout
            for library in LIBRARIES_FOR_MEDIA:
                self.assertNotIn(library, linked, program)

    def test_a_report_without_media_starts_no_process(self):
        if self.is_sanitized():
            self.skipTest("the leak sanitizer starts a process")
        document = timeline([(f"Clip {i}", f"/none/{i}.mov", 5) for i in range(500)],
                            [(f"Song {i}", f"/none/{i}.mp3", 5) for i in range(500)])
        trace = subprocess.run(["strace", "-f", "-qq", "-e", "trace=clone,clone3,fork,vfork",
                                *map(str, self.command(document, "--quiet"))],
                               env=self.environment(), capture_output=True, text=True, timeout=300) \
            if Path("/usr/bin/strace").exists() else None
        if trace is None:
            self.skipTest("there is no strace")
        self.assertNotIn("clone", trace.stderr)

    def disturbed_run(self, document, number, period):
        """A run whose helpers get a signal now and then."""
        run = subprocess.Popen(self.command(document, "--quiet", "--thumbnails=160"), env=self.environment(),
                               stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)
        while run.poll() is None:
            time.sleep(period)
            try:
                for helper in helpers_of(run.pid):
                    os.kill(helper, number)
            except (ProcessLookupError, FileNotFoundError):
                pass
        return run.returncode, run.stderr.read()

    def test_helpers_may_be_ended_at_any_moment(self):
        document = timeline([(f"Clip {i}", self.film, i * 7 % 50) for i in range(40)], [("Song", self.song, 0)])
        self.report(document, "--quiet", "--thumbnails=160")
        undisturbed = self.workbook.read_bytes()
        same = 0
        for period in (0.01, 0.03, 0.05, 0.1, 0.2, 0.4):
            code, error = self.disturbed_run(document, signal.SIGKILL, period)
            self.assertEqual(code, 0, error)
            is_same = self.workbook.read_bytes() == undisturbed
            self.assertEqual(is_same, error.count("\n") == 1, "what is lost is told, and nothing else changes")
            self.assertEqual(names_in(self.temporary), [])
            same += is_same
        print(f"{same} of 6 disturbed runs lost nothing", file=sys.stderr)

    def test_it_stops_at_once_while_a_helper_is_at_a_hostile_file(self):
        hostile = self.hostile("zeros.mp3", b"", 1 << 30)
        run = subprocess.Popen(self.command(timeline([], [("B", hostile, 0)]), "--quiet"), env=self.environment(),
                               stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)
        deadline = time.monotonic() + 30
        helpers = []
        while not helpers and time.monotonic() < deadline:
            time.sleep(0.01)
            try:
                helpers = helpers_of(run.pid)
            except FileNotFoundError:  # one that has just gone
                pass
        time.sleep(0.2)
        begin = time.monotonic()
        run.send_signal(signal.SIGINT)
        _, error = run.communicate(timeout=60)
        self.assertEqual((run.returncode, error), (130, "tallyframe: stopped. The workbook was not written.\n"))
        self.assertLess(time.monotonic() - begin, 5, "half a second, but for the sanitizers on a busy machine")
        for helper in helpers:
            self.assertFalse(Path(f"/proc/{helper}").exists(), "a helper outlives the run")


if __name__ == "__main__":
    unittest.main()

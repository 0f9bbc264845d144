# SPDX-License-Identifier: MIT
"""Reports with pictures and tags of real media files, made with the ffmpeg program:
media_test.py PROGRAM FAILING_DISK"""
import errno
import os
import signal
import subprocess
import sys
import time
import unittest
from pathlib import Path

import xlrd

from made_media import make_film, make_song, make_upright_film
from made_timelines import clip_item, document, sequence, timeline, track
from report_runs import ReportRuns

PROGRAM, FAILING_DISK = sys.argv.pop(1), sys.argv.pop(1)
READ_BACK = Path(__file__).resolve().parents[1] / "workbook" / "read_back.py"
WIDTH = 160
BARS = 10  # a frame carries its number as ten bars: bar i is white when bit i is set
TAG_HEADERS = ["Song Title", "Album", "Track #", "Year", "Musical Genre", "Authors", "Composer", "Producer"]
NO_TAGS = [""] * len(TAG_HEADERS)


def number_shown(jpeg):
    """The number of the frame in a picture."""
    pixels = subprocess.run(["ffmpeg", "-v", "error", "-i", jpeg, "-f", "rawvideo", "-pix_fmt", "gray", "-"],
                            check=True, capture_output=True).stdout
    line = pixels[len(pixels) // WIDTH // 2 * WIDTH:]
    return sum(1 << bar for bar in range(BARS) if line[(2 * bar + 1) * WIDTH // (2 * BARS)] > 128)


class Reports(ReportRuns):
    program = PROGRAM

    def setUp(self):
        super().setUp()
        self.film = self.folder / "media" / "Day 1" / "film.mov"

    def pictures(self):
        return sorted((self.desk / "Reel 1 thumbnails").iterdir())

    def shapes(self):
        lines = subprocess.run([sys.executable, READ_BACK, self.workbook], check=True, capture_output=True,
                               text=True).stdout.splitlines()
        return [line.split() for line in lines if line.startswith("shape ")]

    def places_of_pictures(self):
        """Row and column of each picture in the workbook."""
        return [tuple(map(int, shape[6:8])) for shape in self.shapes()]

    def ends_of_pictures(self):
        """The row in which each picture ends, and at which part of it."""
        return [shape[9] for shape in self.shapes()]

    def tags(self, row):
        sheet = xlrd.open_workbook(self.workbook).sheet_by_name("All Reels")
        first = sheet.row_values(0).index(TAG_HEADERS[0])
        return sheet.row_values(row, first, first + len(TAG_HEADERS))

    def test_each_clip_gets_the_frame_at_its_in_point(self):
        make_film(self.film)
        in_points = [0, 1, 29, 30, 249 - 10, 100, 31, 100]
        run = self.report(timeline([(f"Clip {i}", self.film, i) for i in in_points]), f"--thumbnails={WIDTH}",
                          "--keep-thumbnails")
        self.assertIn(f"The thumbnails are in {self.desk / 'Reel 1 thumbnails'}\n", run.stderr)
        self.assertEqual([number_shown(jpeg) for jpeg in self.pictures()], in_points)
        self.assertEqual(self.pictures()[0].name, "0002 Clip 0.jpg")

    def test_pictures_stand_in_their_rows_and_are_numbered_by_them(self):
        clips = [clip_item("Clip", "/none.mov", 10 * i, 0) for i in range(2)]
        stereo = track([clip_item("Song", "/none.wav", 0, 0)]) * 2  # one row, without a picture
        self.report(document(sequence(track(clips), stereo)), "--thumbnails", "--keep-thumbnails",
                    "--columns", "Row Numbers,Track")
        self.assertEqual(self.places_of_pictures(), [(2, 1), (3, 1)])
        self.assertEqual([jpeg.name for jpeg in self.pictures()], ["0003 Clip.jpg", "0004 Clip.jpg"])

    def test_upright_pictures_end_with_their_rows(self):
        make_upright_film(self.film)
        self.report(timeline([("Clip", self.film, 0), ("Clip", self.film, 1)]), "--thumbnails=640",
                    "--keep-thumbnails")
        sizes = subprocess.run(["ffprobe", "-v", "error", "-show_entries", "stream=width,height", "-of", "csv=p=0",
                                self.pictures()[0]], check=True, capture_output=True, text=True).stdout
        self.assertEqual(sizes.strip(), "640,1138", "the file keeps its size")
        self.assertEqual(self.ends_of_pictures(), ["2+0", "3+0"], "row and what the picture covers of it")

    def test_pictures_that_are_not_kept_leave_no_trace(self):
        make_film(self.film)
        run = self.report(timeline([("Clip", self.film, 5)]), "--thumbnails")
        self.assertNotIn("thumbnails", run.stderr)
        self.assertEqual([file.name for file in self.desk.iterdir()], ["Reel 1.xls"])
        height = xlrd.open_workbook(self.workbook, formatting_info=True).sheet_by_index(0).rowinfo_map[1].height
        self.assertEqual(height, 192 * 15, "320 × 192 pixels are 144 points, 2880 twips")

    def test_no_place_for_temporary_files_costs_the_pictures_only(self):
        make_film(self.film)
        run = self.report(timeline([("Clip", self.film, 5), ("Other", self.film, 6)]), "--thumbnails", "--quiet",
                          TMPDIR="/nowhere")
        self.assertEqual(run.stderr.splitlines(),
                         [f"Wrote {self.workbook}",
                          "tallyframe: 2 rows have no picture, because the folder for temporary files takes none: "
                          "set TMPDIR to another folder."])
        self.assertEqual(xlrd.open_workbook(self.workbook).sheet_by_index(0).nrows, 3)

    def test_a_failed_run_leaves_no_trace(self):
        make_film(self.film)
        self.workbook = self.folder / "nowhere" / "Reel 1.xls"
        run = self.report(timeline([("Clip", self.film, 5)]), "--thumbnails", code=1)
        self.assertNotEqual(run.stderr, "")
        self.assertEqual(list(self.desk.iterdir()), [])

    def test_an_interrupted_run_leaves_no_trace(self):
        make_film(self.film)
        clips = [(f"Clip {i}", self.film, i % 240) for i in range(3000)]
        for number in (signal.SIGINT, signal.SIGTERM):
            for options in ([], ["--keep-thumbnails"]):
                run = subprocess.Popen(self.command(timeline(clips), "--thumbnails=1920", *options),
                                       env=self.environment(), stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
                where = self.desk if options else self.temporary
                deadline = time.monotonic() + 60
                while not list(where.rglob("*.jpg")) and time.monotonic() < deadline:
                    time.sleep(0.01)
                run.send_signal(number)
                _, error = run.communicate(timeout=60)
                self.assertEqual(run.returncode, 130, error)
                self.assertEqual(list(self.temporary.iterdir()), [])
                self.assertEqual(list(self.desk.iterdir()), [])

    def test_media_is_found_where_it_is_now(self):
        make_film(self.film)
        document = timeline([("Clip", "/Volumes/Media/Day 1/film.mov", 7)])
        for options in (["--media-map", f"/Volumes/Media={self.folder / 'media'}"],
                        ["--media-search", self.folder / "media"]):
            run = self.report(document, f"--thumbnails={WIDTH}", "--keep-thumbnails", *options)
            self.assertEqual([number_shown(jpeg) for jpeg in self.pictures()], [7])
            self.assertIn(f"media: /Volumes/Media/Day 1/film.mov is {self.film}", run.stdout)
            sheet = xlrd.open_workbook(self.workbook).sheet_by_index(0)
            path_column = sheet.row_values(0).index("Source File Path")
            self.assertEqual(sheet.cell_value(1, path_column), "/Volumes/Media/Day 1/film.mov")

    def test_a_folder_that_cannot_be_read_costs_only_what_is_in_it(self):
        songs = [self.folder / "media" / f"Day {day}" / f"song {day}.mp3" for day in range(1, 10)]
        for song in songs:
            make_song(song)
        unread = songs[4].parent
        run = self.report(timeline([], [("Song", f"/Volumes/Media/{song.name}", 0) for song in songs]),
                          "--media-search", self.folder / "media", LD_PRELOAD=FAILING_DISK,
                          ASAN_OPTIONS="verify_asan_link_order=0", DISK_FAULT="readdir", DISK_FOLDER=str(unread),
                          DISK_ERRNO=str(errno.EIO))
        self.assertEqual([self.tags(row)[0] for row in range(1, 10)], 4 * ["Light"] + [""] + 4 * ["Light"])
        self.assertIn(f'"media: cannot search {unread}: Input/output error"\n', run.stdout)
        self.assertIn(f"tallyframe: 1 folder could not be searched for media ({unread}).\n", run.stderr)

    def test_pictures_of_earlier_reports_are_used_unless_told_otherwise(self):
        make_film(self.film)
        document = timeline([(f"Clip {i}", self.film, i) for i in range(5)])
        self.report(document, "--thumbnails", "--no-cache")
        self.assertFalse((self.folder / "cache").exists())
        made = self.workbook.read_bytes()
        self.report(document, "--thumbnails")
        self.assertEqual(self.workbook.read_bytes(), made)
        inode_and_times = self.film.stat()
        with open(self.film, "r+b") as film:  # the same file as far as can be told
            film.write(bytes(inode_and_times.st_size))
        os.utime(self.film, ns=(inode_and_times.st_atime_ns, inode_and_times.st_mtime_ns))
        self.report(document, "--thumbnails")
        self.assertEqual(self.workbook.read_bytes(), made, "not decoded a second time")
        self.report(document, "--thumbnails", "--no-cache")
        self.assertNotEqual(self.workbook.read_bytes(), made)

    def test_a_small_bound_on_memory_costs_no_picture_of_a_small_film(self):
        make_film(self.film)
        document = timeline([(f"Clip {i}", self.film, i) for i in range(5)])
        self.report(document, "--thumbnails", "--no-cache")
        made = self.workbook.read_bytes()
        self.report(document, "--thumbnails", "--no-cache", "--memory=128M")
        self.assertEqual(self.workbook.read_bytes(), made)

    def test_tags_are_left_out_with_their_columns(self):
        song = self.folder / "music" / "song.mp3"
        make_song(song)
        self.report(timeline([], [("Song", song, 0)]), "--no-tags")
        header = xlrd.open_workbook(self.workbook).sheet_by_name("All Reels").row_values(0)
        self.assertEqual([title for title in header if title in TAG_HEADERS], [])

    def test_a_name_that_is_no_file_name_has_a_picture_all_the_same(self):
        make_film(self.film)
        names = ["../../Clip", "x" * 300, "Clip"]
        self.report(timeline([(name, self.film, 5) for name in names]), "--thumbnails", "--keep-thumbnails")
        self.assertEqual([jpeg.name for jpeg in self.pictures()],
                         ["0002 .._.._Clip.jpg", "0003 " + "x" * 243 + "….jpg", "0004 Clip.jpg"])

    def test_pictures_kept_a_second_time_are_those_of_the_second_report(self):
        make_film(self.film)
        self.report(timeline([(name, self.film, 5) for name in ("A", "B", "C")]), "--thumbnails", "--keep-thumbnails")
        (self.pictures()[0].parent / "notes.txt").write_text("mine")
        self.report(timeline([(name, self.film, 6) for name in ("D", "B")]), "--thumbnails", "--keep-thumbnails")
        self.assertEqual([file.name for file in self.pictures()], ["0002 D.jpg", "0003 B.jpg", "notes.txt"])

    def test_audio_rows_carry_the_tags_of_their_files(self):
        expected = ["Light", "Weather", 7, 1999, "Ambient", "Zoë Keene", "Ann Lee", ""]
        for number, (name, *encoding) in enumerate([("song.mp3",), ("song.m4a",), ("song.flac",),
                                                    ("song.aiff", "-write_id3v2", "1"),
                                                    ("song.ogg", "-c:a", "libvorbis")]):
            song = self.folder / "music" / str(number) / name
            make_song(song, *encoding)
            self.report(timeline([], [("Song", song, 0)]))
            self.assertEqual(self.tags(1), expected, name)

    def test_rows_without_a_file_have_no_tags(self):
        song = self.folder / "music" / "song.mp3"
        make_song(song)
        self.report(timeline([("Film", song, 0)], [("Song", self.folder / "none.mp3", 0)]))
        for row in (1, 2):
            self.assertEqual(self.tags(row), NO_TAGS, "a video row, or no file")

    def stand_in_for_mdls(self, commands):
        programs = self.folder / "bin"
        programs.mkdir(exist_ok=True)
        (programs / "mdls").write_text("#!/bin/sh\n" + commands)
        (programs / "mdls").chmod(0o755)
        return f"{programs}:{os.environ['PATH']}"

    def test_mdls_gives_the_same_cells(self):
        song = self.folder / "music" / "song.mp3"
        make_song(song)
        path = self.stand_in_for_mdls(
            r"""printf 'Weather\0007\000(\n    "Zo\303\253 Keene"\n)\000Ann Lee\000Ambient\000\0001999\000Light\000'""")
        self.report(timeline([], [("Song", song, 0)]), PATH=path)
        self.assertEqual(self.tags(1), ["Light", "Weather", 7, 1999, "Ambient", "Zoë Keene", "Ann Lee", ""])

    def test_no_path_runs_a_command(self):
        trap = self.folder / "trap"
        quoted = self.folder / "music" / '12" mix.mp3'
        hostile = self.folder / "music" / f"$(touch {trap.name}) `touch {trap.name}`;.mp3"
        for song in (quoted, hostile):
            make_song(song)
            path = self.stand_in_for_mdls("printf 'Weather\\000'")
            self.report(timeline([], [("Song", str(song).replace('"', "%22"), 0)]), PATH=path)
            self.assertEqual(self.tags(1), NO_TAGS if song == quoted else ["", "Weather", *NO_TAGS[2:]])
            self.assertFalse(trap.exists() or Path(trap.name).exists())


if __name__ == "__main__":
    unittest.main()

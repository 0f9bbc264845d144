# SPDX-License-Identifier: MIT
"""Documents at the limits and beyond them: limits_test.py PROGRAM [TEST ...]

Each either gives its report, read back by a foreign reader, or ends in a sentence of its own, within memory in
proportion to the document, and leaves nothing behind.
"""
import os
import re
import subprocess
import sys
import unittest
from pathlib import Path

import xlrd

from made_timelines import RATE, clip_item, document, sequence, track
from report_runs import ReportRuns, names_in

PROGRAM = sys.argv.pop(1)
MEASURE = Path(__file__).with_name("peak_memory.py")
MEGABYTE = 1_000_000
MEMORY_PER_BYTE = 20      # most that a byte of a document may take; tags weigh more than texts
MEMORY_OF_ANY_RUN = 100 * MEGABYTE
MEMORY_OF_SHARED_TEXTS = 1200 * MEGABYTE
SMALL_WORKBOOK = b"an older workbook"


def clips(count, **more):
    return track(clip_item(f"Clip {i}", f"/media/{i % 100}.mov", 10 * i, i % 200, **more) for i in range(count))


def markers(count):
    return "".join(f"<marker><name>M{i}</name><comment>c</comment><in>{i}</in><out>-1</out></marker>\n"
                   for i in range(count))


def clip_of_reel(reel, number):
    timecode = f"<timecode>{RATE}<frame>0</frame><reel><name>{reel}</name></reel></timecode>"
    item = clip_item(f"Clip {number}", f"/media/{number}.mov", 10 * number, 0)
    return item.replace("<pathurl>", timecode + "<pathurl>")


def nested_clip(inner_sequence):
    return (f"<clipitem><name>Nested</name><duration>9</duration>{RATE}<in>0</in><out>9</out><start>0</start>"
            f"<end>9</end>{inner_sequence}</clipitem>")


class LimitRuns(ReportRuns):
    program = PROGRAM

    def run_within_bounds(self, options, memory=MEMORY_OF_ANY_RUN):
        """Runs on self.document; the exit code, and what it says on standard output and error."""
        self.workbook.write_bytes(SMALL_WORKBOOK)
        measured = self.folder / "peak"
        run = subprocess.run([sys.executable, MEASURE, measured, *self.command(None, *options)],
                             env=self.environment(), capture_output=True, text=True, timeout=300)
        self.peak = int(measured.read_text())
        self.size = self.document.stat().st_size
        if not self.is_sanitized():
            self.assertLess(self.peak, memory + MEMORY_PER_BYTE * self.size)
        self.assertEqual(names_in(self.desk), ["Reel 1.xls"])
        self.assertEqual(names_in(self.temporary), [])
        return run.returncode, run.stdout, run.stderr

    def works(self, text, *options):
        """The workbook of a document that must give one, and the log of its run."""
        self.document.write_text(text)
        code, out, error = self.run_within_bounds(options)
        self.assertEqual(code, 0, error)
        return xlrd.open_workbook(self.workbook), out

    def is_refused(self, text, sentence, *options, memory=MEMORY_OF_ANY_RUN):
        self.document.write_text(text)
        code, _, error = self.run_within_bounds(options, memory)
        self.assertEqual((code, error), (1, f"tallyframe: {sentence}\n"))
        self.assertEqual(self.workbook.read_bytes(), SMALL_WORKBOOK)


class Limits(LimitRuns):
    def test_a_sheet_is_full_with_65535_clips(self):
        book, _ = self.works(document(sequence(clips(65_535))))
        sheet = book.sheet_by_name("All Reels")
        self.assertEqual(sheet.nrows, 65_536)
        self.assertEqual(sheet.cell_value(65_535, sheet.row_values(0).index("Clip Name")), "Clip 65534")

    def test_one_clip_more_is_refused(self):
        self.is_refused(document(sequence(clips(65_536))),
                        'The sheet "All Reels" has 65,537 rows, but an Excel 97-2003 sheet holds 65,536.\nReport '
                        "fewer tracks at a time with --tracks, or only what is enabled with --enabled-only.")

    def test_fewer_tracks_at_a_time(self):
        book, _ = self.works(document(sequence(clips(65_535) + clips(10))), "--tracks", "V2")
        self.assertEqual(book.sheet_by_name("All Reels").nrows, 11)

    def test_250_reels(self):
        book, _ = self.works(document(sequence(track(clip_of_reel(f"R{i}", i) for i in range(250)))))
        own_sheets = [name for name in book.sheet_names() if name.startswith("#")]
        self.assertEqual(len(own_sheets), 250)
        self.assertEqual({name.split()[1] for name in own_sheets}, {f"R{i}" for i in range(250)})

    def test_1000_tracks_of_each_kind(self):
        sounds = "".join(track([clip_item(f"Sound {i}", f"/media/{i}.wav", 0, 0)]) for i in range(1000))
        book, _ = self.works(document(sequence(clips(2) * 1000, sounds)))
        sheet = book.sheet_by_name("All Reels")
        labels = sheet.col_values(sheet.row_values(0).index("Track"), 1)
        self.assertEqual(set(labels), {f"{kind}{i}" for kind in "VA" for i in range(1, 1001)})

    def test_100000_markers_are_too_many_for_a_sheet(self):
        of_clip = clip_item("A", "/media/a.mov", 0, 0, 100_005, markers(100_000))
        for name, content in (("Sequence Markers", sequence(clips(5), rest=markers(100_000))),
                              ("Clip Markers", sequence(track([of_clip])))):
            self.is_refused(document(content),
                            f'The sheet "{name}" has 100,001 rows, but an Excel 97-2003 sheet holds 65,536.\nReport '
                            "fewer tracks at a time with --tracks, or leave the sheet out with --no-markers.")
            self.works(document(content), "--no-markers")

    def test_65535_markers(self):
        book, _ = self.works(document(sequence(clips(5), rest=markers(65_535))))
        self.assertEqual(book.sheet_by_name("Sequence Markers").nrows, 65_536)

    def test_a_clip_name_of_10_mebibytes(self):
        self.is_refused(document(sequence(track([clip_item("x" * 10_485_760, "/media/a.mov", 0, 0)]))),
                        "The document holds a text of more than 10 million characters. Please shorten it, then export "
                        "the document again.")

    def test_a_film_is_told_by_its_beginning(self):
        for beginning in (b"\0\0\0\x14ftypqt  ", b"\x06\x0e\x2b\x34\x02\x05\x01\x01", b"RIFF\xff\xff\xff\xffAVI ", b""):
            with self.subTest(beginning=beginning):
                self.document.write_bytes(beginning)
                os.truncate(self.document, 3_000 * MEGABYTE)
                code, _, error = self.run_within_bounds([])
                self.assertEqual((code, error.split("\n")[0]), (1, "tallyframe: not xmeml"))
                if not self.is_sanitized():
                    self.assertLess(self.peak, MEMORY_OF_ANY_RUN)

    def test_a_cell_holds_32767_characters(self):
        for character in ("x", "\u0416", "\U0001F3AC"):  # 1, 1 and 2 units of 16 bits
            units = len(character.encode("utf-16le")) // 2
            for length in (32_766, 32_767, 32_768, 4_000_000):
                with self.subTest(character=character, length=length):
                    name = character * (length // units)
                    book, log = self.works(document(sequence(track([clip_item(name, "/media/a.mov", 0, 0)]))))
                    sheet = book.sheet_by_name("All Reels")
                    written = sheet.cell_value(1, sheet.row_values(0).index("Clip Name"))
                    self.assertEqual(written, name[:32_767 // units])
                    self.assertEqual("was cut: a cell holds 32,767 characters." in log, len(written) < len(name))

    def test_sequences_nested_in_each_other(self):
        def nested(depth):
            inner = clip_item("Innermost", "/media/a.mov", 0, 0)
            for i in range(depth):
                inner = nested_clip(sequence(track([inner])))
            return document(sequence(track([inner])))
        self.works(nested(40), "--item", "1")
        self.is_refused(nested(1000),
                        "The document nests elements more than 256 deep. Please export a simpler sequence.")

    def test_sequences_that_refer_to_each_other(self):
        for last in ("<sequence id='s0'/>", "<sequence id='s999'/>", clip_item("Last", "/media/a.mov", 0, 0)):
            inner = [f"<sequence id='s{i + 1}'/>" for i in range(999)] + [last]
            content = "".join(sequence(track([nested_clip(each)])).replace(
                "<sequence>", f"<sequence id='s{i}' explodedTracks='true'>") for i, each in enumerate(inner))
            self.works(document(content), "--item", "1")

    def test_long_texts_that_many_clips_share(self):
        long_text = "x" * 9_000_000
        effect = ("<filter><enabled>TRUE</enabled><effect><name>F</name><effectid>F</effectid>"
                  "<effecttype>filter</effecttype></effect></filter>")
        master = ("<bin><children><clip id='m'><logginginfo>"
                  f"<lognote>{long_text}</lognote></logginginfo></clip></children></bin>")
        defined = clip_of_reel(long_text, 0)
        repeated = re.sub("(<file id='[^']*')>.*</file>", r"\1/>", defined)
        for what, content in (
                ("a clip's name", sequence(track([clip_item(long_text, "/media/a.mov", 0, 0, rest=effect * 2000)]))),
                ("a file's reel", sequence(track([defined] + [repeated] * 2000))),
                ("a track's name", sequence(clips(2000).replace("<track>", f"<track MZ.TrackName='{long_text}'>"))),
                ("a master clip's note", sequence(clips(2000, rest="<masterclipid>m</masterclipid>")) + master)):
            with self.subTest(what):
                self.is_refused(document(content),
                                "The document has names or notes of such length, shared by so many clips, that the "
                                "report would take more than 500 MB for them. Shorten the longest ones, then export "
                                "the document again.", "--sequence", "U", memory=MEMORY_OF_SHARED_TEXTS)


class LargeDocument(LimitRuns):
    SIZE = 500 * MEGABYTE
    CLIPS = 60_000

    def test_500_megabytes(self):
        if os.sysconf("SC_AVPHYS_PAGES") * os.sysconf("SC_PAGE_SIZE") < 12 * self.SIZE:
            self.skipTest("there is too little free memory on this machine")
        if self.is_sanitized():
            self.skipTest("a sanitizer multiplies the memory")
        parameters = "\n".join(
            f"\t\t<parameter>\n\t\t\t<parameterid>{i}</parameterid>\n\t\t\t<name>Setting {i}</name>\n"
            f"\t\t\t<value>{i}</value>\n\t\t</parameter>" for i in range(72))
        effect = ("<filter>\n\t<enabled>TRUE</enabled>\n\t<effect>\n\t\t<name>F</name>\n"
                  f"\t\t<effectid>F</effectid>\n\t\t<effecttype>filter</effecttype>\n{parameters}</effect></filter>")
        with self.document.open("w") as out:
            before, after = document(sequence("<track>\n</track>")).split("\n")
            out.write(before)
            for i in range(self.CLIPS):
                out.write(clip_item(f"Clip {i}", f"/media/{i}.mov", 10 * i, 0, rest=effect))
            out.write(after)
        self.assertGreater(self.document.stat().st_size, self.SIZE)
        code, _, error = self.run_within_bounds(["--quiet"])
        self.assertEqual(code, 0, error)
        print(f"{self.size / MEGABYTE:.0f} MB took {self.peak / self.size:.1f} times as much memory")
        book = xlrd.open_workbook(self.workbook, on_demand=True)
        for name in ("All Reels", "Filters"):
            self.assertGreater(book.sheet_by_name(name).nrows, self.CLIPS, name)


if __name__ == "__main__":
    unittest.main()

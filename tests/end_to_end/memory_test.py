# SPDX-License-Identifier: MIT
"""Documents whose shape is after the memory: memory_test.py PROGRAM [TEST ...]

Whatever a document is made of, listing it and reporting its first entry take no more than 25 times its size, and end
in a workbook or a sentence.
"""
import subprocess
import sys
import unittest
from pathlib import Path

from made_timelines import RATE, clip_item, document, sequence, track
from report_runs import ReportRuns

PROGRAM = sys.argv.pop(1)
MEASURE = Path(__file__).with_name("peak_memory.py")
MEGABYTE = 1_000_000
SIZE = 1 * MEGABYTE
MEMORY_PER_BYTE = 25
MEMORY_OF_ANY_RUN = 15 * MEGABYTE

TIMES = "<duration>9</duration><in>0</in><out>9</out><start>0</start><end>9</end>"
EFFECT = "<effect><name>F</name><effectid>F</effectid></effect>"
CLIP = track([clip_item("A", "/media/a.mov", 0, 0)])


def filled(markup):
    return markup * (SIZE // len(markup))


def numbered(make):
    pieces, size = [], 0
    while size < SIZE:
        pieces.append(make(len(pieces)))
        size += len(pieces[-1])
    return "".join(pieces)


def nested(opening, closing, depth=240, content="x"):
    return opening * depth + content + closing * depth


def beside_a_clip(content):
    return document(sequence(CLIP) + content)


def in_a_clip(content):
    return document(sequence(track([clip_item("A", "/media/a.mov", 0, 0, rest=content)])))


def in_a_track(content):
    return document(sequence(track([content])))


def in_tracks(content):
    return document(sequence(content, content))


def in_bins(content):
    return document(f"<bin><children>{content}</children></bin>")


MARKUP = {
    "empty elements": beside_a_clip(filled("<a/>")),
    "an attribute": beside_a_clip(filled("<a b=''/>")),
    "many attributes": beside_a_clip(filled("<a" + "".join(f" {chr(97 + i)}=''" for i in range(26)) + "/>")),
    "hundreds of attributes": beside_a_clip(filled("<a" + "".join(f" a{i}=''" for i in range(900)) + "/>")),
    "short texts": beside_a_clip(filled("<a>x</a>")),
    "texts between elements": beside_a_clip(filled("x<b/>")),
    "comments": beside_a_clip(filled("<!---->")),
    "instructions": beside_a_clip(filled("<?a?>")),
    "character data": beside_a_clip(filled("<![CDATA[]]>x")),
    "references": beside_a_clip(f"<a>{filled('&amp;')}</a>"),
    "entities": document(sequence(CLIP) + filled("&e;"), "<!DOCTYPE xmeml [<!ENTITY e ''>]>"),
    "entities of an element": document(sequence(CLIP) + filled("&e;"), "<!DOCTYPE xmeml [<!ENTITY e '<b/>'>]>"),
    "deep elements": beside_a_clip(filled(nested("<a>", "</a>"))),
    "namespaces": beside_a_clip(filled("<a xmlns:n='u'/>")),
    "long names": beside_a_clip(filled("<" + "n" * 1000 + "/>")),
    "bad characters": beside_a_clip(filled("\x01")),
    "bad lines": beside_a_clip(filled("\x01\n")),
    "empty elements and a bad character": beside_a_clip("\x01" + filled("<a/>")),
    "layout and a bad character": beside_a_clip("\x01" + filled("<a/> ")),
    "unknown namespaces": beside_a_clip(filled("<n:a/>")),
    "unknown entities": beside_a_clip(filled("&x;")),
}
XMEML = {
    "files": beside_a_clip(filled("<file>x</file>")),
    "files with an id": beside_a_clip(numbered(lambda i: f"<file id='{i}'>x</file>")),
    "files in each other": beside_a_clip(filled(nested("<file>", "</file>"))),
    "files with an id in each other": beside_a_clip(
        filled("".join(f"<file id='{i}'>" for i in range(240)) + "</file>" * 240)),
    "paths in each other": beside_a_clip(filled(nested("<file><pathurl>", "</pathurl></file>", 110, "x" * 1000))),
    "reels of files": beside_a_clip(
        numbered(lambda i: f"<file id='{i}'><timecode><reel><name>R{i}</name></reel></timecode></file>")),
    "reels of a file": beside_a_clip(
        "<file>" + numbered(lambda i: f"<timecode><reel><name>{i}</name></reel></timecode>") + "</file>"),
    "sequences": document(filled("<sequence><uuid>a</uuid><name/></sequence>")),
    "sequences in each other": document(filled(nested("<sequence><name>x</name><uuid>y</uuid>", "</sequence>", 120))),
    "identifiers": document(f"<sequence><name>n</name>{filled('<uuid/>')}</sequence>"),
    "clips that refer to each other": document(numbered(
        lambda i: sequence(track([f"<clipitem><name>N</name>{TIMES}<sequence id='s{i + 1}'/></clipitem>"])).replace(
            "<sequence>", f"<sequence id='s{i}' explodedTracks='true'>", 1))),
    "clips that refer to a file of many attributes": document(
        sequence(track([filled(f"<clipitem>{TIMES}<sequence id='s'/></clipitem>")])).replace(
            "<sequence>", "<sequence id='q' explodedTracks='true'>", 1)
        + "<sequence id='s'><media><video><track><clipitem><file id='f'" + "".join(f" a{i}=''" for i in range(900))
        + "/></clipitem></track></video></media></sequence>"),
    "clips": in_a_track(numbered(lambda i: clip_item(f"Clip {i}", f"/media/{i}.mov", 10 * i, 0))),
    "short clips": in_tracks(filled(track([f"<clipitem>{TIMES}</clipitem>"]))),
    "clips with a filter": in_tracks(filled(track([f"<clipitem>{TIMES}<filter>{EFFECT}</filter></clipitem>"]))),
    "generators": in_a_track(filled(f"<generatoritem>{TIMES}{EFFECT}</generatoritem>")),
    "transitions": in_a_track(filled(f"<transitionitem><start>0</start><end>9</end>{EFFECT}</transitionitem>")),
    "filters": in_a_clip(filled(f"<filter>{EFFECT}</filter>")),
    "parameters": in_a_clip("<filter><effect><name>F</name><effectid>F</effectid><effecttype>filter</effecttype>"
                            + filled("<parameter><name>P</name><value>1</value></parameter>") + "</effect></filter>"),
    "markers": in_a_clip(filled("<marker><name/><comment/><in>0</in><out>-1</out></marker>")),
    "empty tracks": in_tracks(filled("<track/>")),
    "bins": in_bins(numbered(lambda i: f"<clip id='{i}'><media><video><track><clipitem><name>C</name>{RATE}{TIMES}"
                                       "</clipitem></track></video></media></clip>")),
    "bins of empty tracks": in_bins(filled("<clip><media><video><track/></video></media></clip>")),
    "a bin clip of many media": in_bins(f"<clip>{filled('<media><video><track/></video></media>')}</clip>"),
    "notes of master clips": beside_a_clip(numbered(lambda i: f"<clip id='{i}'><labels/><comments/></clip>")),
}


class Memory(ReportRuns):
    program = PROGRAM

    def check(self, options):
        measured = self.folder / "peak"
        run = subprocess.run([sys.executable, MEASURE, measured, self.program, *options], env=self.environment(),
                             capture_output=True, text=True, timeout=100)
        self.assertIn(run.returncode, (0, 1), run.stderr)
        self.assertTrue(run.stdout or run.stderr, "neither a menu nor a sentence")
        if not self.is_sanitized():
            peak = int(measured.read_text()) - MEMORY_OF_ANY_RUN
            self.assertLess(peak, MEMORY_PER_BYTE * self.document.stat().st_size, run.stderr)

    def check_all(self, documents):
        for name, text in documents.items():
            with self.subTest(name):
                self.document.write_text(text)
                self.check(["list", self.document])
                self.check(["report", self.document, "--quiet", "--item", "1", "-o", self.workbook])

    def test_documents_of_nothing_but_short_markup(self):
        self.check_all(MARKUP)

    def test_documents_of_nothing_but_one_kind_of_element(self):
        self.check_all(XMEML)


if __name__ == "__main__":
    unittest.main()

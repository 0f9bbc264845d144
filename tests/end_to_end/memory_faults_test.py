# SPDX-License-Identifier: MIT
"""Reports for which memory runs out: memory_faults_test.py PROGRAM FAILING_MEMORY [RUNS]

Whichever request for memory fails, the workbook is the right one, or the older one is as it was and a sentence says
why. RUNS for each kind of run, spread over its requests; "all" tries each of them (some minutes).
"""
import base64
import json
import subprocess
import sys
import unittest

from made_media import make_song
from made_timelines import RATE, clip_item, document, sequence, track
from report_runs import ReportRuns, names_in

PROGRAM, FAILING_MEMORY = sys.argv[1:3]
RUNS = sys.argv[3] if len(sys.argv) > 3 else "60"
OLD = b"the older workbook"
SENTENCES = ("tallyframe: there is not enough memory for this document.",
             ": Cannot allocate memory.")


def title_item(text, font, start):
    style = {"mText": text, "mFontName": {"mParamValues": [[0, font]]}}
    content = json.dumps({"mTextParam": {"mStyleSheet": style}}).encode("utf-16-le")
    value = base64.b64encode(len(content).to_bytes(8, "little") + content).decode()
    return (f"<clipitem><name>Title</name><duration>99</duration>{RATE}<start>{start}</start><end>{start + 10}</end><in>0</in><out>10</out>"
            f"<file id='title {start}'><name>Graphic</name><mediaSource>GraphicAndType</mediaSource>{RATE}</file>"
            f"<filter><effect><name>{text}</name><effectid>GraphicAndType</effectid>"
            f"<parameter><name>Source Text</name><value>{value}</value></parameter></effect></filter></clipitem>")


def marker(name):
    return f"<marker><name>{name}</name><comment/><in>1</in><out>-1</out></marker>"


def small_cut():
    """Something for every sheet, and names that no ASCII and no URL can hold as they are."""
    reel = f"<timecode>{RATE}<frame>0</frame><source>source</source><reel><name>Zoë 1</name></reel></timecode>"
    video = [clip_item(f"Clip {i}", f"/media/Día {i}/Zoë %{i}.mov", 10 * i, 0, rest=marker("Größe"))
             .replace("</pathurl>", "</pathurl>" + reel) for i in range(3)]
    video.append(title_item("Nachtmarkt", "Menlo-Regular", 30))
    audio = [clip_item("Song", "/Volumes/Music/sông.mp3", 0, 0)]
    return document(sequence(track(video), track(audio), rest=marker("Start")))


class MemoryFaults(ReportRuns):
    program = PROGRAM

    def setUp(self):
        super().setUp()
        if self.is_sanitized():
            self.skipTest("the sanitizer has taken the allocator's place")
        make_song(self.folder / "media" / "sông.mp3")
        self.count = self.folder / "count"

    def run_with(self, options, **fault):
        return subprocess.run(self.command(None, "--quiet", *options), capture_output=True, text=True, timeout=60,
                              env=self.environment(LD_PRELOAD=FAILING_MEMORY, MEMORY_COUNT=str(self.count), **fault))

    def requests(self, options, code):
        run = self.run_with(options)
        self.assertEqual(run.returncode, code, run.stderr)
        return int(self.count.read_text())

    def check(self, run, right):
        """The library that reads the document has words of its own to say before ours."""
        self.assertIn(run.returncode, (0, 1), run.stderr)
        self.assertEqual(names_in(self.desk), ["Reel 1.xls"])
        self.assertEqual(names_in(self.temporary), [])
        content = self.workbook.read_bytes()
        if run.returncode == 0:
            self.assertTrue(content == right, "a workbook that is not the right one counts as written")
        else:
            self.assertIn(content, (OLD, right))
            self.assertTrue(run.stderr.rstrip("\n").endswith(SENTENCES), run.stderr)

    def try_requests(self, options):
        # The library that reads the arguments looks them up where nothing may be thrown: what it needs is left out.
        self.document.unlink(missing_ok=True)
        first = self.requests(options, 1) + 1
        self.document.write_text(small_cut(), encoding="utf-8")
        last = self.requests(options, 0)
        right = self.workbook.read_bytes()
        step = 1 if RUNS == "all" else max(1, (last - first) // int(RUNS))
        for which in ("MEMORY_FAULT_AT", "MEMORY_FAULT_FROM"):
            for number in range(first, last, step):
                with self.subTest(which, number=number, of=last, options=options):
                    self.workbook.write_bytes(OLD)
                    self.check(self.run_with(options, **{which: str(number)}), right)

    def test_any_request_may_fail(self):
        self.try_requests([])

    def test_any_request_may_fail_while_media_is_searched(self):
        self.try_requests(["--media-search", self.folder / "media"])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])

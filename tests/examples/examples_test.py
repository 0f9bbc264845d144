# SPDX-License-Identifier: MIT
"""The bundled timelines hold together as the applications' own exports do, and show what they promise."""

import base64
import json
import pathlib
import sys
import unittest
import xml.etree.ElementTree as ElementTree

EXAMPLES = pathlib.Path(sys.argv.pop())
HARBOUR = ElementTree.parse(EXAMPLES / "harbour-lights-fcp7.xml").getroot()
MARKET = ElementTree.parse(EXAMPLES / "night-market-premiere.xml").getroot()
TITLES = "clipitem/filter/effect/parameter[name='Source Text']/value"


def number(item, tag):
    return int(item.findtext(tag))


def tracks(root):
    """(name, items on the timeline) of each track of each sequence."""
    for sequence in root.iter("sequence"):
        for kind in ("video", "audio"):
            for index, track in enumerate(sequence.findall(f"media/{kind}/track")):
                items = [item for item in track if item.tag in ("clipitem", "generatoritem", "transitionitem")]
                yield f"{sequence.findtext('name')}, {kind} {index + 1}", items


def resolved(items):
    """(item, start, end, lies beside a transition) with the -1 under transitions replaced by the transition's edge."""
    for index, item in enumerate(items):
        start, end = number(item, "start"), number(item, "end")
        after = index > 0 and items[index - 1].tag == "transitionitem"
        if start == -1:
            start = number(items[index - 1], "start")
        if end == -1:
            end = number(items[index + 1], "end")
        yield item, start, end, after


class Examples(unittest.TestCase):
    def test_clips_follow_one_another(self):
        overlaps = []
        for root in (HARBOUR, MARKET):
            for name, items in tracks(root):
                last = 0
                for item, start, end, after_transition in resolved(items):
                    self.assertLess(start, end, name)
                    if item.tag == "transitionitem":
                        continue
                    if start < last and not after_transition:
                        overlaps.append((name, last - start))
                    last = end
        self.assertEqual(overlaps, [("Harbour Lights, reel 1, video 4", 1)])

    def test_clips_use_as_many_frames_as_they_cover_and_no_more_than_there_are(self):
        for root in (HARBOUR, MARKET):
            for name, items in tracks(root):
                for item, start, end, _ in resolved(items):
                    if item.tag == "clipitem":
                        self.assertEqual(number(item, "out") - number(item, "in"), end - start, name)
                        self.assertGreaterEqual(number(item, "in"), 0, name)
                        self.assertLessEqual(number(item, "out"), number(item, "duration"), name)

    def test_every_file_and_sequence_is_given_in_full_once(self):
        for root in (HARBOUR, MARKET):
            for tag in ("file", "sequence"):
                full = [element.get("id") for element in root.iter(tag) if len(element)]
                self.assertEqual(sorted(full), sorted(set(full)))
                self.assertLessEqual({element.get("id") for element in root.iter(tag)}, set(full))

    def test_links_lead_to_clips(self):
        for root in (HARBOUR, MARKET):
            clips = {item.get("id") for item in root.iter("clipitem")}
            self.assertLessEqual({link.text for link in root.iter("linkclipref")}, clips)

    def test_speed_stands_where_the_durations_of_clip_and_media_differ(self):
        for root in (HARBOUR, MARKET):
            durations = {file.get("id"): file.findtext("duration") for file in root.iter("file") if len(file)}
            told = 0
            for item in root.iter("clipitem"):
                if item.find("filter/effect[effectid='timeremap']") is not None:
                    told += item.findtext("duration") != durations[item.find("file").get("id")]
            self.assertGreaterEqual(told, 2)

    def test_harbour_lights_has_every_type_of_marker(self):
        comments = [marker.findtext("comment") or "" for marker in HARBOUR.findall("project/children/sequence/marker")]
        for tag in ("<CHAPTER>", "<COMPRESSION>", "<SCORING>"):
            self.assertTrue(any(tag in comment for comment in comments), tag)
        self.assertTrue(any("<" not in comment for comment in comments))

    def test_harbour_lights_leaves_logging_to_the_master_clips(self):
        masters = {clip.get("id") for clip in HARBOUR.iter("clip")}
        heirs = [item for item in HARBOUR.iter("clipitem") if item.find("logginginfo") is None]
        self.assertGreater(len(heirs), 60)
        self.assertLessEqual({item.findtext("masterclipid") for item in heirs} - {None}, masters)

    def test_night_market_has_titles_in_every_form(self):
        decoded = [base64.b64decode(value.text) for value in MARKET.findall(f".//{TITLES}")]
        outcomes = []
        for title in decoded:
            if int.from_bytes(title[:8], "little") != len(title) - 8:
                outcomes.append("font only")
                continue
            text = title[8:].decode("utf-16le")
            try:
                json.loads(text)
                outcomes.append("whole")
            except ValueError:
                json.loads(text + "}")
                outcomes.append("cut short")
        self.assertEqual(sorted(set(outcomes)), ["cut short", "font only", "whole"])


if __name__ == "__main__":
    unittest.main()

#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Writes a large timeline as a document of the editing application would look: make_timeline.py CLIPS > FILE.xml

CLIPS clip items in 6 video and 4 audio tracks, about one filter or motion setting a clip, a marker on every
second clip, a transition at every tenth cut, a title after every 25th video clip, one media file for 20 clips,
one reel for 10 files. The same number always gives the same document.
"""
import random
import sys

VIDEO_TRACKS, AUDIO_TRACKS = 6, 4
RATE = "<rate>\n{0}\t<timebase>25</timebase>\n{0}\t<ntsc>FALSE</ntsc>\n{0}</rate>"
WORDS = ("harbour night quay lantern rain crane ferry gull rope tide morning fog captain letter window "
         "bridge street kitchen market laughs turns walks waits looks").split()


def parameter(ident, name, value):
    return f"""\t\t\t\t\t\t\t\t<parameter>
\t\t\t\t\t\t\t\t\t<parameterid>{ident}</parameterid>
\t\t\t\t\t\t\t\t\t<name>{name}</name>
\t\t\t\t\t\t\t\t\t<valuemin>0</valuemin>
\t\t\t\t\t\t\t\t\t<valuemax>1000</valuemax>
\t\t\t\t\t\t\t\t\t<value>{value}</value>
\t\t\t\t\t\t\t\t</parameter>
"""


def effect(ident, name, kind, media, parameters):
    return f"""\t\t\t\t\t\t<filter>
\t\t\t\t\t\t\t<enabled>TRUE</enabled>
\t\t\t\t\t\t\t<effect>
\t\t\t\t\t\t\t\t<name>{name}</name>
\t\t\t\t\t\t\t\t<effectid>{ident}</effectid>
\t\t\t\t\t\t\t\t<effectcategory>{kind}</effectcategory>
\t\t\t\t\t\t\t\t<effecttype>{kind}</effecttype>
\t\t\t\t\t\t\t\t<mediatype>{media}</mediatype>
{parameters}\t\t\t\t\t\t\t</effect>
\t\t\t\t\t\t</filter>
"""


def basic_motion(random_numbers):
    point = "<horiz>0</horiz><vert>0</vert>"
    return effect("basic", "Basic Motion", "motion", "video",
                  parameter("scale", "Scale", random_numbers.randint(50, 150)) + parameter("rotation", "Rotation", 0)
                  + parameter("center", "Center", point) + parameter("centerOffset", "Anchor Point", point))


VIDEO_EFFECTS = [
    basic_motion,
    lambda r: effect("Color Corrector", "Color Corrector", "filter", "video", parameter("sat", "Saturation", 90)),
    lambda r: effect("opacity", "Opacity", "motion", "video", parameter("opacity", "opacity", r.randint(10, 99))),
    lambda r: effect("grain.house", "Film Grain", "filter", "video", parameter("size", "Size", 3)),
]
AUDIO_EFFECTS = [
    lambda r: effect("audiolevels", "Audio Levels", "audiolevels", "audio", parameter("level", "Level", 0.8))
    + effect("audiopan", "Audio Pan", "audiopan", "audio", parameter("pan", "Pan", -1)),
    lambda r: effect("{61756678, 64656c79, 6170706c}", "AUDelay", "filter", "audio", parameter("t", "Time", 1)),
]


class Timeline:
    def __init__(self, clips, out):
        self.clips = clips
        self.out = out
        self.random = random.Random(7)
        self.defined = set()
        self.count = 0

    def words(self, low, high):
        return " ".join(self.random.choice(WORDS) for _ in range(self.random.randint(low, high)))

    def file(self, number, media):
        ident = f"file-{media}-{number}"
        if ident in self.defined:
            return f'\t\t\t\t\t\t<file id="{ident}"/>\n'
        self.defined.add(ident)
        reel = f"{'A' if media == 'video' else 'S'}{number // 10 + 1:03d}"
        sound = """\t\t\t\t\t\t\t\t<audio>
\t\t\t\t\t\t\t\t\t<samplecharacteristics>
\t\t\t\t\t\t\t\t\t\t<samplerate>48000</samplerate>
\t\t\t\t\t\t\t\t\t\t<depth>16</depth>
\t\t\t\t\t\t\t\t\t</samplecharacteristics>
\t\t\t\t\t\t\t\t</audio>
"""
        picture = """\t\t\t\t\t\t\t\t<video>
\t\t\t\t\t\t\t\t\t<duration>90000</duration>
\t\t\t\t\t\t\t\t\t<samplecharacteristics>
\t\t\t\t\t\t\t\t\t\t<width>1920</width>
\t\t\t\t\t\t\t\t\t\t<height>1080</height>
\t\t\t\t\t\t\t\t\t</samplecharacteristics>
\t\t\t\t\t\t\t\t</video>
"""
        ending = "mov" if media == "video" else "wav"
        rate = RATE.format("\t" * 7)
        return f"""\t\t\t\t\t\t<file id="{ident}">
\t\t\t\t\t\t\t<name>{reel}_{number:05d}.{ending}</name>
\t\t\t\t\t\t\t<pathurl>file://localhost/Volumes/Media%20{number % 7}/Harbour/{reel}/{reel}_{number:05d}.{ending}</pathurl>
\t\t\t\t\t\t\t{rate}
\t\t\t\t\t\t\t<duration>90000</duration>
\t\t\t\t\t\t\t<timecode>
\t\t\t\t\t\t\t\t{RATE.format(chr(9) * 8)}
\t\t\t\t\t\t\t\t<string>10:00:00:00</string>
\t\t\t\t\t\t\t\t<frame>900000</frame>
\t\t\t\t\t\t\t\t<displayformat>NDF</displayformat>
\t\t\t\t\t\t\t\t<reel>
\t\t\t\t\t\t\t\t\t<name>{reel}</name>
\t\t\t\t\t\t\t\t</reel>
\t\t\t\t\t\t\t</timecode>
\t\t\t\t\t\t\t<media>
{picture if media == 'video' else ''}{sound}\t\t\t\t\t\t\t</media>
\t\t\t\t\t\t</file>
"""

    def marker(self, start):
        return f"""\t\t\t\t\t\t<marker>
\t\t\t\t\t\t\t<comment>{self.words(2, 8)}</comment>
\t\t\t\t\t\t\t<name>Marker {self.count}</name>
\t\t\t\t\t\t\t<in>{start + 3}</in>
\t\t\t\t\t\t\t<out>-1</out>
\t\t\t\t\t\t</marker>
"""

    def links(self, number, track):
        return "".join(f"""\t\t\t\t\t\t<link>
\t\t\t\t\t\t\t<linkclipref>clip-{number + linked}</linkclipref>
\t\t\t\t\t\t\t<mediatype>{media}</mediatype>
\t\t\t\t\t\t\t<trackindex>{track}</trackindex>
\t\t\t\t\t\t\t<clipindex>{number}</clipindex>
\t\t\t\t\t\t\t<groupindex>1</groupindex>
\t\t\t\t\t\t</link>
""" for linked, media in enumerate(("video", "audio", "audio")))

    def clip(self, media, track, start, length):
        number = self.count
        self.count += 1
        source = self.random.randint(0, 80000)
        effects = VIDEO_EFFECTS if media == "video" else AUDIO_EFFECTS
        filters = self.random.choice(effects)(self.random)
        marker = self.marker(source) if number % 2 == 0 else ""
        self.out.write(f"""\t\t\t\t\t<clipitem id="clip-{number}">
\t\t\t\t\t\t<name>{self.words(2, 4)} {number % 997}</name>
\t\t\t\t\t\t<duration>90000</duration>
\t\t\t\t\t\t{RATE.format(chr(9) * 6)}
\t\t\t\t\t\t<in>{source}</in>
\t\t\t\t\t\t<out>{source + length}</out>
\t\t\t\t\t\t<start>{start}</start>
\t\t\t\t\t\t<end>{start + length}</end>
\t\t\t\t\t\t<pixelaspectratio>square</pixelaspectratio>
\t\t\t\t\t\t<enabled>{'FALSE' if number % 50 == 0 else 'TRUE'}</enabled>
\t\t\t\t\t\t<anamorphic>FALSE</anamorphic>
\t\t\t\t\t\t<alphatype>none</alphatype>
\t\t\t\t\t\t<masterclipid>master-{number % 1999}</masterclipid>
\t\t\t\t\t\t<logginginfo>
\t\t\t\t\t\t\t<description>{self.words(3, 9)}</description>
\t\t\t\t\t\t\t<scene>{number % 120 + 1}</scene>
\t\t\t\t\t\t\t<shottake>{number % 9 + 1}</shottake>
\t\t\t\t\t\t\t<lognote>{self.words(1, 6)}</lognote>
\t\t\t\t\t\t\t<good>FALSE</good>
\t\t\t\t\t\t</logginginfo>
\t\t\t\t\t\t<labels>
\t\t\t\t\t\t\t<label2>Good Take</label2>
\t\t\t\t\t\t</labels>
\t\t\t\t\t\t<comments>
\t\t\t\t\t\t\t<mastercomment1>{self.words(1, 5)}</mastercomment1>
\t\t\t\t\t\t</comments>
{self.file(number // 20, media)}{filters}{marker}\t\t\t\t\t\t<sourcetrack>
\t\t\t\t\t\t\t<mediatype>{media}</mediatype>
\t\t\t\t\t\t\t<trackindex>1</trackindex>
\t\t\t\t\t\t</sourcetrack>
{self.links(number, track)}\t\t\t\t\t</clipitem>
""")

    def transition(self, media, cut):
        name, category = (("Cross Dissolve", "Dissolve") if media == "video" else ("Cross Fade (+3dB)", "Audio"))
        self.out.write(f"""\t\t\t\t\t<transitionitem>
\t\t\t\t\t\t<start>{cut - 6}</start>
\t\t\t\t\t\t<end>{cut + 6}</end>
\t\t\t\t\t\t<alignment>center</alignment>
\t\t\t\t\t\t<effect>
\t\t\t\t\t\t\t<name>{name}</name>
\t\t\t\t\t\t\t<effectid>{name}</effectid>
\t\t\t\t\t\t\t<effectcategory>{category}</effectcategory>
\t\t\t\t\t\t\t<effecttype>transition</effecttype>
\t\t\t\t\t\t\t<mediatype>{media}</mediatype>
\t\t\t\t\t\t</effect>
\t\t\t\t\t</transitionitem>
""")

    def title(self, start, length):
        self.out.write(f"""\t\t\t\t\t<generatoritem id="title-{self.count}-{start}">
\t\t\t\t\t\t<name>Title {start}</name>
\t\t\t\t\t\t<duration>3000</duration>
\t\t\t\t\t\t{RATE.format(chr(9) * 6)}
\t\t\t\t\t\t<in>0</in>
\t\t\t\t\t\t<out>{length}</out>
\t\t\t\t\t\t<start>{start}</start>
\t\t\t\t\t\t<end>{start + length}</end>
\t\t\t\t\t\t<enabled>TRUE</enabled>
\t\t\t\t\t\t<effect>
\t\t\t\t\t\t\t<name>Text</name>
\t\t\t\t\t\t\t<effectid>Text</effectid>
\t\t\t\t\t\t\t<effectcategory>Text</effectcategory>
\t\t\t\t\t\t\t<effecttype>generator</effecttype>
\t\t\t\t\t\t\t<mediatype>video</mediatype>
{parameter('str', 'Text', self.words(2, 6))}{parameter('fontname', 'Font', 'Helvetica')}\t\t\t\t\t\t</effect>
\t\t\t\t\t</generatoritem>
""")

    def tracks(self, media, count, clips_of_track):
        self.out.write(f"\t\t\t<{media}>\n")
        for track in range(1, count + 1):
            self.out.write("\t\t\t\t<track>\n")
            position = 0
            for index in range(clips_of_track(track)):
                length = self.random.randint(30, 200)
                if index % 10 == 9:
                    self.transition(media, position)
                self.clip(media, track, position, length)
                position += length
                if media == "video" and index % 25 == 24:
                    self.title(position, 75)
                    position += 75
            self.out.write("\t\t\t\t\t<enabled>TRUE</enabled>\n\t\t\t\t\t<locked>FALSE</locked>\n\t\t\t\t</track>\n")
        self.out.write(f"\t\t\t</{media}>\n")

    def write(self):
        tracks = VIDEO_TRACKS + AUDIO_TRACKS

        def clips_of(track):
            return self.clips // tracks + (1 if track <= self.clips % tracks else 0)

        self.out.write("""<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE xmeml>
<xmeml version="5">
\t<sequence id="Harbour Lights">
\t\t<uuid>6F1D2A30-0000-4000-8000-0000000000B5</uuid>
\t\t<updatebehavior>add</updatebehavior>
\t\t<name>Harbour Lights</name>
\t\t<duration>1000000</duration>
\t\t<rate>
\t\t\t<timebase>25</timebase>
\t\t\t<ntsc>FALSE</ntsc>
\t\t</rate>
\t\t<timecode>
\t\t\t<rate>
\t\t\t\t<timebase>25</timebase>
\t\t\t\t<ntsc>FALSE</ntsc>
\t\t\t</rate>
\t\t\t<string>01:00:00:00</string>
\t\t\t<frame>90000</frame>
\t\t\t<source>source</source>
\t\t\t<displayformat>NDF</displayformat>
\t\t</timecode>
\t\t<media>
""")
        self.tracks("video", VIDEO_TRACKS, clips_of)
        self.tracks("audio", AUDIO_TRACKS, lambda track: clips_of(track + VIDEO_TRACKS))
        self.out.write("\t\t</media>\n\t</sequence>\n</xmeml>\n")


if __name__ == "__main__":
    Timeline(int(sys.argv[1]), sys.stdout).write()

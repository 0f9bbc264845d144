# SPDX-License-Identifier: MIT
"""Small documents and report options that vary in everything; the same random numbers give the same ones."""
from xml.sax.saxutils import escape

WORDS = ["Interview", "Kitchen", "Night", "0012", "7", "1e5", "TRUE", "=SUM(A1)", "'quoted", '"quoted"', "#N/A", "-",
         "+1", "R&B", "<b>", "a/b", "Ärger", "naïve", "Ω≈ç√", "東京の朝", "файл", "שלום", "مرحبا", "e\u0301", "🎬",
         "👩\u200d🎤", "\u2028", "_x0041_", "50%", "@home", "12:30", "01.02.2003", "1,5", "$5"]
FLAGS = ["--no-markers", "--no-generators", "--no-transitions", "--no-filters", "--no-motion", "--no-files-summary",
         "--no-reels", "--enabled-only", "--skip-video-audio"]
BLANKS = [" ", " ", " ", "  ", "\t", "\n"]
LONG_TEXTS = [255, 256, 4_111, 8_223, 8_224, 8_225, 32_766, 32_767, 32_768, 40_000]
RATES = [(24, "TRUE"), (24, "FALSE"), (25, "FALSE"), (30, "TRUE"), (30, "FALSE"), (50, "FALSE"), (60, "TRUE"),
         (60, "FALSE")]
NOTES = {"logginginfo": ["description", "scene", "shottake", "lognote", "scenenote", "shotnote", "takenote"],
         "labels": ["label", "label2"],
         "comments": ["mastercomment1", "mastercomment2", "clipcommenta"],
         "filmdata": ["cameraroll", "dailyroll", "labroll"]}
EFFECTS = [("Gaussian Blur", "Gaussian Blur", "filter"), ("Film Grain", "grain.house", "filter"),
           ("Opacity", "opacity", "motion"), ("Crop", "crop", "motion"), ("Basic Motion", "basic", "motion")]
TIME_FORMS = ["Timecode", "Clock", "Frames", "Feet+Frames", "Seconds"]
COLUMNS = ["Track", "Enabled", "Sequence In", "Sequence Out", "Clip Duration", "Source File Name"]
COLORS = ["blue", "green", "gray", "red", "black", "purple", "#123456", "#FFEEDD"]


def element(name, content, **attributes):
    """`content`: markup."""
    listed = "".join(f" {key}='{value}'" for key, value in attributes.items())
    return f"<{name}{listed}>{content}</{name}>"


class RandomTimeline:
    def __init__(self, random_numbers):
        self.random = random_numbers
        self.timebase, self.ntsc = self.random.choice(RATES)

    def chance(self, part):
        return self.random.random() < part

    def text(self):
        if self.chance(0.01):
            word = self.random.choice(WORDS)
            return escape((word * 40_000)[:self.random.choice(LONG_TEXTS)])
        words = [self.random.choice(WORDS) for _ in range(self.random.randint(1, 6))]
        return escape("".join(word + self.random.choice(BLANKS) for word in words)[:-1])

    def rate(self, own=False):
        timebase, ntsc = self.random.choice(RATES) if own else (self.timebase, self.ntsc)
        return element("rate", element("timebase", timebase) + element("ntsc", ntsc))

    def timecode(self, rest=""):
        return element("timecode", self.rate() + element("frame", self.random.randint(0, 2_000_000))
                       + element("displayformat", self.random.choice(["DF", "NDF"])) + rest)

    def notes(self):
        return "".join(element(group, "".join(element(name, self.text()) for name in names if self.chance(0.5)))
                       for group, names in NOTES.items() if self.chance(0.4))

    def parameters(self):
        named = [("scale", self.random.randint(0, 200)), ("rotation", self.random.randint(-90, 90)),
                 ("center", element("horiz", 0.25) + element("vert", 0)), ("opacity", self.random.randint(0, 100))]
        return "".join(element("parameter", element("parameterid", ident) + element("name", ident.title())
                               + element("value", value)) for ident, value in named if self.chance(0.7))

    def effect(self):
        name, ident, kind = self.random.choice(EFFECTS)
        if self.chance(0.3):
            name = ident = self.text()
        return element("filter", element("enabled", self.random.choice(["TRUE", "FALSE"])) + element(
            "effect", element("name", name) + element("effectid", ident) + element("effecttype", kind)
            + self.parameters()))

    def marker(self, first, last):
        return element("marker", element("name", self.text()) + element("comment", self.text())
                       + element("in", self.random.randint(first, last)) + element("out", -1))

    def file(self, kind):
        number = self.random.randint(0, 9)
        reel = element("reel", element("name", self.text())) if self.chance(0.8) else ""
        sound = element("audio", element("samplecharacteristics", element("samplerate", 48_000)))
        picture = element("video", element("samplecharacteristics", element("width", 1920) + element("height", 1080)))
        return element("file", element("name", self.text()) + self.rate(own=True)
                       + (element("duration", 90_000) if self.chance(0.9) else "") + self.timecode(reel)
                       + element("pathurl", f"file://localhost/Volumes/M/%E2%82%AC{number}/{kind}%20{number}.mov")
                       + element("media", picture * (kind == "video") + sound),
                       id=f"{kind}-{number}")

    def clip_item(self, kind, start, length):
        first = self.random.randint(0, 50_000)
        return element(
            "clipitem", element("name", self.text()) + element("duration", 90_000) + self.rate() + element("in", first)
            + element("out", first + length) + element("start", start) + element("end", start + length)
            + element("enabled", self.random.choice(["TRUE", "TRUE", "FALSE"])) + self.notes() + self.file(kind)
            + "".join(self.effect() for _ in range(self.random.randint(0, 3)))
            + "".join(self.marker(first, first + length) for _ in range(self.random.choice([0, 0, 1, 2]))))

    def title(self, start, length):
        texts = "".join(element("parameter", element("parameterid", ident) + element("name", name)
                                + element("value", self.text()))
                        for ident, name in (("str", "Text"), ("str2", "Text"), ("fontname", "Font")))
        return element("generatoritem", element("name", self.text()) + element("start", start)
                       + element("end", start + length)
                       + element("effect", element("name", self.text()) + texts))

    def transition(self, cut):
        return element("transitionitem", element("start", cut - 5) + element("end", cut + 5) + element(
            "effect", element("name", self.random.choice(["Cross Dissolve", self.text()]))
            + element("effectcategory", self.random.choice(["Dissolve", self.text()]))))

    def track(self, kind):
        items, start = [], 0
        for _ in range(self.random.randint(0, 6)):
            length = self.random.randint(1, 2000)
            if kind == "video" and self.chance(0.2):
                items.append(self.title(start, length))
            else:
                items.append(self.clip_item(kind, start, length))
            start += length
            if self.chance(0.2):
                items.append(self.transition(start))
        name = {"MZ.TrackName": escape(self.random.choice(WORDS), {"'": "&apos;"})} if self.chance(0.3) else {}
        return element("track", "".join(items) + element("enabled", self.random.choice(["TRUE", "FALSE"])), **name)

    def document(self):
        tracks = {kind: "".join(self.track(kind) for _ in range(self.random.randint(1, 4)))
                  for kind in ("video", "audio")}
        sequence = element(
            "sequence", element("uuid", "U") + element("name", self.text()) + element("duration", 100_000) + self.rate()
            + self.timecode() + element("media", "".join(element(*track) for track in tracks.items()))
            + "".join(self.marker(0, 5000) for _ in range(self.random.choice([0, 1, 5]))))
        return f"<?xml version='1.0' encoding='UTF-8'?>\n<!DOCTYPE xmeml>\n{element('xmeml', sequence, version=5)}"

    def options(self):
        options = [flag for flag in FLAGS if self.chance(0.1)]
        for flag in ("--timeline-columns", "--source-columns"):
            if self.chance(0.4):
                options += [flag, ",".join(self.random.sample(TIME_FORMS, self.random.randint(1, 5)))]
        if self.chance(0.2):
            options += ["--columns", ",".join(self.random.sample(COLUMNS, self.random.randint(1, len(COLUMNS))))]
        for flag in ("--video-color", "--audio-color", "--marker-color"):
            if self.chance(0.3):
                options += [flag, self.random.choice(COLORS)]
        if self.chance(0.1):
            options += ["--thumbnails=160"]  # of media that is missing: each row shows that
        return options

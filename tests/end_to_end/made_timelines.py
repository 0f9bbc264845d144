# SPDX-License-Identifier: MIT
"""Documents made for a test: each function gives a piece of one, as text."""

RATE = "<rate><timebase>25</timebase><ntsc>FALSE</ntsc></rate>"


def clip_item(name, path, start, source_in, length=10, rest=""):
    """A clip of 25 fps. `rest`: further elements of it, such as a marker."""
    return (f"<clipitem><name>{name}</name><duration>250</duration>{RATE}"
            f"<in>{source_in}</in><out>{source_in + length}</out><start>{start}</start><end>{start + length}</end>"
            f"<enabled>TRUE</enabled><file id='{path}'><name>{name}</name><duration>250</duration>{RATE}"
            f"<pathurl>file://localhost{path}</pathurl></file>{rest}</clipitem>\n")


def track(items):
    return f"<track>{''.join(items)}</track>"


def sequence(video="", audio="", name="Reel 1", rest=""):
    """`video`, `audio`: the tracks. `rest`: further elements of it, such as a marker."""
    return (f"<sequence><uuid>U</uuid><name>{name}</name><duration>100</duration>{RATE}"
            f"<timecode>{RATE}<frame>0</frame></timecode>"
            f"<media><video>{video}</video><audio>{audio}</audio></media>{rest}</sequence>")


def document(content, before=""):
    """`before`: what stands before the first element, such as a document type."""
    return f"<?xml version='1.0' encoding='UTF-8'?>{before}<xmeml version='5'>{content}</xmeml>"


def timeline(video, audio=()):
    """A document with one video and one audio track; each clip is (name, path, in-point)."""
    def track_of(clips):
        return track(clip_item(name, path, 10 * i, source_in) for i, (name, path, source_in) in enumerate(clips))
    return document(sequence(track_of(video), track_of(audio)))

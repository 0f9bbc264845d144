#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes films, and a cut of many clips out of them: make_rushes.py FOLDER

FOLDER/film-01.mp4 … film-20.mp4 are 20 s each of 1080p H.264 as ffmpeg writes it unless told otherwise: a key frame
every ten seconds, B-frames between. One is encoded and the others are links to it, which a decoder cannot tell.
FOLDER/cut.xml has 500 clips with in-points all over the films, in the order of a cut: neighbours come from different
films. FOLDER/frames.json lists (film, seconds) of each clip in this order. The same files every time.
"""
import json
import os
import random
import subprocess
import sys
from pathlib import Path

FILMS, CLIPS, SECONDS, FPS = 20, 500, 20, 25
LENGTH = 10  # frames of each clip
RATE = f"<rate><timebase>{FPS}</timebase><ntsc>FALSE</ntsc></rate>"


def make_films(folder):
    films = [folder / f"film-{i + 1:02}.mp4" for i in range(FILMS)]
    subprocess.run(["ffmpeg", "-v", "error", "-nostdin", "-y", "-f", "lavfi",
                    "-i", f"testsrc2=s=1920x1080:r={FPS}:d={SECONDS},noise=alls=6:allf=t", "-pix_fmt", "yuv420p",
                    "-c:v", "libx264", "-preset", "veryfast", films[0]], check=True)
    for film in films[1:]:
        film.unlink(missing_ok=True)
        os.link(films[0], film)
    return films


def clip_item(number, film, in_point):
    start = number * LENGTH
    return (f"<clipitem id='c{number}'><name>{film.stem} {number}</name><duration>{SECONDS * FPS}</duration>{RATE}"
            f"<in>{in_point}</in><out>{in_point + LENGTH}</out><start>{start}</start><end>{start + LENGTH}</end>"
            f"<enabled>TRUE</enabled><file id='{film.stem}'><name>{film.name}</name>"
            f"<duration>{SECONDS * FPS}</duration>{RATE}<pathurl>file://localhost{film}</pathurl></file></clipitem>\n")


def cut(clips):
    items = "".join(clip_item(number, film, in_point) for number, (film, in_point) in enumerate(clips))
    return ("<?xml version='1.0' encoding='UTF-8'?><xmeml version='5'><sequence><uuid>cut</uuid><name>Cut</name>"
            f"<duration>{len(clips) * LENGTH}</duration>{RATE}<timecode>{RATE}<frame>0</frame></timecode>"
            f"<media><video><track>\n{items}</track></video></media></sequence></xmeml>\n")


def main(folder):
    folder.mkdir(parents=True, exist_ok=True)
    films = make_films(folder)
    numbers = random.Random(1)
    clips = [(numbers.choice(films), numbers.randrange(SECONDS * FPS - LENGTH)) for _ in range(CLIPS)]
    (folder / "cut.xml").write_text(cut(clips), encoding="utf-8")
    (folder / "frames.json").write_text(json.dumps([(str(film), in_point / FPS) for film, in_point in clips]))


if __name__ == "__main__":
    main(Path(sys.argv[1]).resolve())

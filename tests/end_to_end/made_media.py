# SPDX-License-Identifier: MIT
"""Media files made for a test with the ffmpeg program."""
import subprocess


def ffmpeg(*arguments):
    subprocess.run(["ffmpeg", "-v", "error", "-nostdin", "-y", *map(str, arguments)], check=True)


def make_upright_film(path):
    path.parent.mkdir(parents=True, exist_ok=True)
    ffmpeg("-f", "lavfi", "-i", "color=red:s=90x160:r=25", "-frames:v", 5, "-c:v", "libx264", path)


def make_film(path, frames=250):
    path.parent.mkdir(parents=True, exist_ok=True)
    bars = "geq=lum='if(mod(floor(N/pow(2,floor(X/16))),2),235,16)':cb=128:cr=128"
    ffmpeg("-f", "lavfi", "-i", f"color=black:s=160x96:r=25,{bars},format=yuv420p", "-frames:v", frames,
           "-c:v", "libx264", "-preset", "veryfast", "-g", 30, path)


def make_song(path, *encoding):
    path.parent.mkdir(parents=True, exist_ok=True)
    tags = {"title": "Light", "album": "Weather", "artist": "Zoë Keene", "composer": "Ann Lee", "genre": "Ambient",
            "date": "1999", "track": "7/12"}
    ffmpeg("-f", "lavfi", "-i", "sine=duration=0.2",
           *[part for tag in tags.items() for part in ("-metadata", "=".join(tag))], *encoding, path)

# SPDX-License-Identifier: MIT
"""Holds the #include lines of src/ against the table of who may know whom: include_test.py SRC"""
import math
import re
import sys
from pathlib import Path

# Folder -> folders of ours that it may include besides itself.
LOWER = {
    "workbook": set(),
    "text": set(),
    "timecode": {"text"},
    "run": {"text"},
    "platform": {"run", "text"},
    "media_files": {"platform", "run", "text"},
    "document": {"run", "text"},
    "media": {"document", "timecode", "run", "text"},
    "analysis": {"media", "document", "timecode", "run", "text"},
    "report": {"analysis", "media", "timecode", "run", "text"},
    "sheets": {"report", "analysis", "media", "timecode", "workbook", "platform", "run", "text"},
    "writers": {"sheets", "report", "workbook", "platform", "run", "text"},
    "sequence_to_spreadsheet": {"writers", "sheets", "report", "analysis", "media", "document", "timecode",
                                "media_files", "platform", "run", "text"},
    "cli": {"sequence_to_spreadsheet", "writers", "sheets", "report", "analysis", "document", "media_files", "platform",
            "run", "text"},
    "window": {"sequence_to_spreadsheet", "writers", "sheets", "report", "analysis", "document", "media_files",
               "platform", "run", "text"},
}

# Inside a folder: its rooms from the lowest up. None may include from a room above it.
ROOMS = {
    "workbook": [r"\w+\.h", r"records/\w+\.(h|cpp)", r"file/\w+\.(h|cpp)", r"\w+\.cpp"],
    "media_files": [r"\w+\.(h|cpp)", r"pictures/\w+\.(h|cpp)", r"helper/\w+\.(h|cpp)"],
    "window": [r"models/\w+\.(h|cpp)", r"desktop/\w+\.(h|cpp)", r"runs/\w+\.(h|cpp)", r"panels/\w+\.(h|cpp)",
               r"\w+\.(h|cpp)"],
}

# Folder -> of another folder only the headers that match.
# Of the workbook library all but the writers see its rules for names alone, and nobody sees its inside.
# The report reads what the analysis has left.
OPEN_HEADERS = {
    "report": {"analysis": re.compile(r"analysis/(\w+_records?|analysis_result)\.h"),
               "media": re.compile(r"media/(\w+_record|file_urls)\.h")},
    "sheets": {"workbook": re.compile(r"workbook/sheet_name\.h")},
    "writers": {"workbook": re.compile(r"workbook/\w+\.h")},
}

# A library, or a part of one, that only one folder may know. Each hides inside the sources named here.
LIBRARIES = {
    r"libxml/": "document/",
    r"nlohmann/": "cli/|analysis/title_text",
    r"taglib": "media_files/(tag_readers|chunk_tags)",
    r"libav|libsw|turbojpeg|jpeglib": "media_files/pictures/",
    r"seccomp": "media_files/helper/",
    r"Q[A-Z]\w+": "window/",
    r"Q(Widget|Dialog|Label|LineEdit|Frame|\w+(Widget|Button|Box|Layout|View|Dialog))$": r"window/(panels/|\w+\.)",
    r"unicode/": "text/|workbook/|sequence_to_spreadsheet/file_name_part",
    r"uriparser/": "media/",
}

INCLUDE = re.compile(r'^\s*#\s*include\s+(["<])([^">]+)[">]', re.MULTILINE)


def room_of(name):
    """How high the room of a file lies in its folder; infinity for a file in none."""
    folder, inside = name.split("/", 1)
    rooms = ROOMS.get(folder, [r".*"])
    return next((height for height, room in enumerate(rooms) if re.fullmatch(room, inside)), math.inf)


def faults_of(path, source_root):
    name = path.relative_to(source_root).as_posix()
    folder = name.split("/")[0]
    if folder not in LOWER:
        yield f"{name}: the folder {folder}/ has no place among the layers"
        return
    if room_of(name) == math.inf:
        yield f"{name}: lies in no room of {folder}/"
        return
    for quote, target in INCLUDE.findall(path.read_text()):
        other = target.split("/")[0]
        if quote == '"':
            if "/" not in target:
                yield f'{name}: "{target}" is included without its folder'
            elif other != folder and other not in LOWER[folder]:
                yield f"{name}: {folder}/ may not include {target}"
            elif other in OPEN_HEADERS.get(folder, {}) and not OPEN_HEADERS[folder][other].fullmatch(target):
                yield f"{name}: {target} is not open to {folder}/"
            elif other == folder and room_of(target) > room_of(name):
                yield f"{name}: {target} lies in a room above"
        for library, allowed in LIBRARIES.items():
            if quote == "<" and re.match(library, target) and not re.match(allowed, name):
                yield f"{name}: <{target}> belongs to {allowed} alone"


def main():
    source_root = Path(sys.argv[1])
    sources = sorted(path for ending in ("*.h", "*.cpp") for path in source_root.rglob(ending))
    faults = [fault for path in sources for fault in faults_of(path, source_root)]
    print("\n".join(faults) or f"{len(sources)} files keep to the layers")
    sys.exit(1 if faults or not sources else 0)


if __name__ == "__main__":
    main()

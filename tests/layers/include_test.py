# SPDX-License-Identifier: MIT
"""Holds the #include lines of src/ against the table of who may know whom: include_test.py SRC"""
import re
import sys
from pathlib import Path

# Folder -> folders of ours that it may include besides itself.
LOWER = {
    "timecode": set(),
    "workbook": set(),
    "platform": set(),
    "document": {"platform"},
    "media": {"document", "timecode", "platform"},
    "analysis": {"media", "document", "timecode", "platform"},
    "report": {"analysis", "media", "document", "timecode", "workbook", "platform"},
    "sheets": {"report", "analysis", "media", "document", "timecode", "workbook", "platform"},
    "sequence_to_spreadsheet": {"sheets", "report", "analysis", "media", "document", "timecode", "workbook",
                                "platform"},
    "cli": {"sequence_to_spreadsheet", "report", "analysis", "document", "workbook", "platform"},
    "window": {"sequence_to_spreadsheet", "report", "analysis", "document", "workbook", "platform"},
}

# The report reads what the analysis has left, and numbers in texts as the analysis does.
HEADERS_OF_RECORDS = {
    "report": {"analysis": re.compile(r"analysis/(\w+_records?|analysis_result)\.h"),
               "media": re.compile(r"media/(\w+_record|file_urls)\.h"),
               "document": re.compile(r"document/text_values\.h")},
}

# A library that only one folder may know. Each hides inside the sources named here.
LIBRARIES = {
    r"libxml/": "document/",
    r"gsf/": "workbook/",
    r"nlohmann/": "cli/|analysis/title_text",
    r"taglib|libav|libsw|turbojpeg|jpeglib": "platform/",
    r"Q[A-Z]\w+": "window/",
    r"uriparser/": "media/",
}

INCLUDE = re.compile(r'^\s*#\s*include\s+(["<])([^">]+)[">]', re.MULTILINE)


def faults_of(path, source_root):
    name = path.relative_to(source_root).as_posix()
    folder = name.split("/")[0]
    if folder not in LOWER:
        yield f"{name}: the folder {folder}/ has no place among the layers"
        return
    for quote, target in INCLUDE.findall(path.read_text()):
        other = target.split("/")[0]
        if quote == '"':
            if "/" not in target:
                yield f'{name}: "{target}" is included without its folder'
            elif other != folder and other not in LOWER[folder]:
                yield f"{name}: {folder}/ may not include {target}"
            elif other in HEADERS_OF_RECORDS.get(folder, {}) \
                    and not HEADERS_OF_RECORDS[folder][other].fullmatch(target):
                yield f"{name}: {folder}/ may include records only, not {target}"
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

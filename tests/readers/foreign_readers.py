# SPDX-License-Identifier: MIT
"""What four programs that share nothing with this one, or each other, read in a workbook.

Each reader takes paths of workbooks and a folder for its own files, and gives for each path the sheets in their order:
{name: {(row, column): value}}, a value being a text or a number. What cannot be read is a text that says why.
"""
import gzip
import re
import subprocess
import zipfile
from pathlib import Path
from xml.etree import ElementTree

import xlrd

POI_PRINTER = Path(__file__).with_name("PrintWorkbooks.java")
JAVA_LIBRARIES = "/usr/share/java"
POI_LIBRARIES = ["poi", "commons-codec", "commons-collections4", "commons-math3"]
BATCH = 50


def batches(paths):
    return (paths[begin:begin + BATCH] for begin in range(0, len(paths), BATCH))


def cells_in_xlrd(sheet):
    for row in range(sheet.nrows):
        for column, cell in enumerate(sheet.row(row)):
            if cell.ctype == xlrd.XL_CELL_ERROR:
                yield (row, column), xlrd.error_text_from_code[cell.value]
            elif cell.ctype not in (xlrd.XL_CELL_EMPTY, xlrd.XL_CELL_BLANK):
                yield (row, column), cell.value


def read_with_xlrd(paths, _):
    books = {}
    for path in paths:
        try:
            book = xlrd.open_workbook(path, formatting_info=True)
            books[path] = {sheet.name: dict(cells_in_xlrd(sheet)) for sheet in book.sheets()}
        except Exception as failure:  # of any kind, for a damaged file leads anywhere
            books[path] = repr(failure)
    return books


def read_with_poi(paths, _):
    libraries = ":".join(f"{JAVA_LIBRARIES}/{name}.jar" for name in POI_LIBRARIES)
    printed = subprocess.run(["java", "--class-path", libraries, POI_PRINTER, *paths], check=True, capture_output=True,
                             text=True, encoding="utf-8").stdout
    unescaped = {"t": "\t", "n": "\n", "r": "\r", "\\": "\\"}
    books = {}
    for line in printed.split("\n")[:-1]:
        kind, *fields = (re.sub(r"\\(.)", lambda match: unescaped[match[1]], field) for field in line.split("\t"))
        if kind == "file":
            path = Path(fields[0])
            books[path] = {}
        elif kind == "sheet":
            cells = books[path][fields[0]] = {}
        elif kind == "failure":
            books[path] = fields[0]
        else:
            cells[int(fields[0]), int(fields[1])] = float(fields[2]) if kind == "number" else fields[2]
    return books


def in_spreadsheet_xml(root):
    """Sheets of Gnumeric's own format, whose elements all have one namespace."""
    space = "{http://www.gnumeric.org/v10.dtd}"
    text_kind, number_kinds = "60", ("30", "40")
    sheets = {}
    for sheet in root.iter(space + "Sheet"):
        cells = sheets[sheet.findtext(space + "Name")] = {}
        for cell in sheet.iter(space + "Cell"):
            kind = cell.get("ValueType")
            if kind not in (*number_kinds, text_kind, "50"):
                return f"a cell of the kind {kind}"
            cells[int(cell.get("Row")), int(cell.get("Col"))] = \
                float(cell.text) if kind in number_kinds else cell.text or ""
    return sheets


def read_with_gnumeric(paths, folder):
    books = {}
    for path in paths:
        own = folder / (path.stem + ".gnumeric")
        run = subprocess.run(["ssconvert", "--export-type", "Gnumeric_XmlIO:sax", path, own], capture_output=True,
                             text=True)
        if run.returncode != 0 or run.stderr:
            books[path] = run.stderr or f"exit code {run.returncode}"
            continue
        with gzip.open(own) as content:
            books[path] = in_spreadsheet_xml(ElementTree.parse(content).getroot())
    return books


def column_number(letters):
    number = 0
    for letter in letters:
        number = 26 * number + ord(letter) - ord("A") + 1
    return number - 1


def in_xlsx(path):
    main = "{http://schemas.openxmlformats.org/spreadsheetml/2006/main}"
    relation = "{http://schemas.openxmlformats.org/officeDocument/2006/relationships}id"

    def unescaped(text):
        return re.sub("_x([0-9A-Fa-f]{4})_", lambda match: chr(int(match[1], 16)), text)

    def text_of(item):
        return unescaped("".join(part.text or "" for part in item.iter(main + "t")))

    with zipfile.ZipFile(path) as archive:
        def parsed(name):
            return ElementTree.fromstring(archive.read(name))
        texts = [text_of(item) for item in parsed("xl/sharedStrings.xml")]
        targets = {each.get("Id"): each.get("Target") for each in parsed("xl/_rels/workbook.xml.rels")}
        sheets = {}
        for sheet in parsed("xl/workbook.xml").iter(main + "sheet"):
            cells = sheets[unescaped(sheet.get("name"))] = {}
            for cell in parsed("xl/" + targets[sheet.get(relation)]).iter(main + "c"):
                value = cell.findtext(main + "v")
                if value is None:
                    continue
                letters, row = re.fullmatch("([A-Z]+)([0-9]+)", cell.get("r")).groups()
                kind = cell.get("t", "n")
                cells[int(row) - 1, column_number(letters)] = \
                    texts[int(value)] if kind == "s" else float(value) if kind == "n" else value
    return sheets


def read_with_libreoffice(paths, folder):
    books = {}
    for batch in batches(paths):
        run = subprocess.run(["soffice", f"-env:UserInstallation={(folder / 'profile').as_uri()}", "--headless",
                              "--convert-to", "xlsx", "--outdir", folder, *batch], capture_output=True, text=True)
        for path in batch:
            converted = folder / (path.stem + ".xlsx")
            books[path] = in_xlsx(converted) if converted.exists() else run.stdout + run.stderr
    return books


READERS = {"xlrd": read_with_xlrd, "LibreOffice": read_with_libreoffice, "Gnumeric": read_with_gnumeric,
           "Apache POI": read_with_poi}

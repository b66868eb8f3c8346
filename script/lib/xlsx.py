"""Reads a workbook file as a spreadsheet program stores it (zip and XML), enough to check what a run has left in it."""

import re
import xml.etree.ElementTree as xml
import zipfile

_MAIN = "{http://schemas.openxmlformats.org/spreadsheetml/2006/main}"
_REL = "{http://schemas.openxmlformats.org/officeDocument/2006/relationships}"
_PACKAGE = "{http://schemas.openxmlformats.org/package/2006/relationships}"


class Workbook:
    """`sheets` maps names, in order, to `Sheet`; `names` maps workbook names to what they refer to."""

    def __init__(self, path):
        with zipfile.ZipFile(path) as parts:
            assert parts.testzip() is None
            book = xml.fromstring(parts.read("xl/workbook.xml"))
            targets = {
                r.get("Id"): r.get("Target")
                for r in xml.fromstring(parts.read("xl/_rels/workbook.xml.rels")).iter(_PACKAGE + "Relationship")
            }
            strings = self._strings(parts)
            self._read_styles(parts)
            self.names = {n.get("name"): n.text for n in book.iter(_MAIN + "definedName")}
            self.sheets = {}
            for sheet in book.iter(_MAIN + "sheet"):
                target = targets[sheet.get(_REL + "id")]
                part = target.lstrip("/") if target.startswith("/") else "xl/" + target
                self.sheets[sheet.get("name")] = Sheet(xml.fromstring(parts.read(part)), strings, self)

    @staticmethod
    def _strings(parts):
        if "xl/sharedStrings.xml" not in parts.namelist():
            return []
        table = xml.fromstring(parts.read("xl/sharedStrings.xml"))
        return ["".join(t.text or "" for t in item.iter(_MAIN + "t")) for item in table.iter(_MAIN + "si")]

    def _read_styles(self, parts):
        styles = xml.fromstring(parts.read("xl/styles.xml"))
        borders = [
            {edge.tag[len(_MAIN) :]: edge.get("style") for edge in border if edge.get("style")}
            for border in styles.find(_MAIN + "borders")
        ]
        fills = [fill for fill in styles.find(_MAIN + "fills")]
        formats = styles.find(_MAIN + "cellXfs")
        self.borders = [borders[int(f.get("borderId", 0))] for f in formats]
        self.filled = [self._solid(fills[int(f.get("fillId", 0))]) for f in formats]

    @staticmethod
    def _solid(fill):
        pattern = fill.find(_MAIN + "patternFill")
        return pattern is not None and pattern.get("patternType") == "solid"


class Sheet:
    def __init__(self, root, strings, workbook):
        self._workbook = workbook
        self._cells = {}
        self._styles = {}
        self._formulas = {}
        for cell in root.iter(_MAIN + "c"):
            place = cell.get("r")
            self._styles[place] = int(cell.get("s", 0))
            formula = cell.find(_MAIN + "f")
            if formula is not None:
                self._formulas[place] = "=" + (formula.text or "")
            self._cells[place] = self._value(cell, strings)
        self._columns = [(int(c.get("min")), int(c.get("max")), float(c.get("width", 0))) for c in root.iter(_MAIN + "col")]

    @staticmethod
    def _value(cell, strings):
        kind = cell.get("t")
        if kind == "inlineStr":
            return "".join(t.text or "" for t in cell.iter(_MAIN + "t"))
        value = cell.find(_MAIN + "v")
        if value is None or value.text is None:
            return ""
        return strings[int(value.text)] if kind == "s" else value.text

    def value(self, place):
        """The cell's value as text, "" for none."""
        return self._cells.get(place, "")

    def formula(self, place):
        return self._formulas.get(place, "")

    def borders(self, place):
        """The line styles of the cell's edges, by "left", "right", "top", "bottom"."""
        return self._workbook.borders[self._styles.get(place, 0)]

    def filled(self, place):
        return self._workbook.filled[self._styles.get(place, 0)]

    def width(self, column):
        """The column's width in characters, as the file says it; 0 when it says nothing."""
        number = column_number(column)
        return next((width for first, last, width in self._columns if first <= number <= last), 0)

    def last_row(self, column):
        """The last row in which the column has a text or a number; 0 for none."""
        rows = [int(m.group(2)) for m in map(_split, self._cells) if m.group(1) == column and self.value(m.group(0))]
        return max(rows, default=0)


def _split(place):
    return re.match(r"([A-Z]+)(\d+)", place)


def column_number(letters):
    number = 0
    for letter in letters:
        number = number * 26 + ord(letter) - 64
    return number

#!/usr/bin/python3
"""Opens what a run has left and checks it in the office program: office_check.py PIPE BEFORE RESULT...

Says what it has checked of each result; says each thing that is not as it should be, and then ends with 1.
"""

import re
import sys
from pathlib import Path

import uno
from com.sun.star.document.MacroExecMode import USE_CONFIG
from com.sun.star.table.BorderLineStyle import DASH_DOT_DOT
from demo_check import KINDS, QUOTES, SETTINGS, target_among
from office_tests import office

FIRST_PLACE, SECOND_PLACE = "K3:M22", "K30"
GREY, NO_FILL = 0xC0C0C0, -1
# How wide the columns of a tape are in characters, and how much their margins may add.
CHARACTERS, MARGINS = 10, 1
HUNDREDTHS_IN_A_POINT = 2540 / 72
PROBE = 123.25


class Result:
    def __init__(self, document, records_before, toolkit):
        self.document = document
        self.toolkit = toolkit
        self.sheets = document.Sheets
        self.settings = self.sheets.getByName(SETTINGS)
        self.tape_sheet = target_among(self.sheets.ElementNames)
        # Rows from 0: the first new record.
        self.first = records_before + 1
        self.faults = []
        self.count = 0

    def expect(self, holds, what):
        self.count += 1
        if not holds:
            self.faults.append(what)

    def cell(self, name):
        return self.sheets.getByName(self.tape_sheet).getCellRangeByName(name)

    def record(self, number):
        row = self.settings.getCellRangeByPosition(0, self.first + number, 3, self.first + number)
        return [row.getCellByPosition(column, 0) for column in range(4)]

    def header(self):
        title, _, size, _ = self.record(0)
        shown = [self.cell(name).String for name in ("K3", "L3", "M3", "K30")]
        self.expect(shown == ["Local Time", title.String, size.String, "Local Time"], f"headers {shown}")
        self.expect(title.String.endswith("(last price)"), f"header '{title.String}'")
        self.expect(size.String.endswith("(last size)"), f"size header '{size.String}'")

    def records(self):
        places = [self.record(number)[3].String for number in (0, 1)]
        self.expect(places[0] == f"{self.tape_sheet}!{FIRST_PLACE}", f"place '{places[0]}'")
        self.expect(places[1].startswith(f"{self.tape_sheet}!{SECOND_PLACE}"), f"picked place '{places[1]}'")
        for number in (0, 1):
            even = (self.first + number + 1) % 2 == 0
            fills = {cell.CellBackColor for cell in self.record(number)}
            self.expect(fills == {GREY if even else NO_FILL}, f"shading {fills} of record {number + 1}")

    def link(self):
        """The quote cell gets another value: after a hard recalculation the link shows it."""
        for number in (0, 1):
            link = self.record(number)[1]
            match = re.fullmatch(r"=\$?" + QUOTES + r"\.(\$[A-Z]+\$\d+)", link.Formula)
            self.expect(bool(match), f"link '{link.Formula}'")
            if match:
                self.sheets.getByName(QUOTES).getCellRangeByName(match.group(1)).Value = PROBE + number
                self.document.calculateAll()
                self.expect(link.Value == PROBE + number, f"the link shows {link.Value}")

    def frame(self):
        edges = {"K3": "Left Top", "M3": "Right Top", "K22": "Left Bottom", "M22": "Right Bottom", "L10": ""}
        for name, expected in edges.items():
            found = []
            for edge in ("Left", "Right", "Top", "Bottom"):
                line = getattr(self.cell(name), edge + "Border2")
                if line.LineWidth or line.OuterLineWidth:
                    found.append(edge if line.LineStyle == DASH_DOT_DOT else f"{edge} in style {line.LineStyle}")
            self.expect(" ".join(found) == expected, f"borders '{' '.join(found)}' of {name}")

    def widths(self):
        digit = self.digit()
        for name in "KLM":
            width = self.cell(name + "1").Columns.getByIndex(0).Width / digit
            self.expect(CHARACTERS <= width < CHARACTERS + MARGINS, f"width {width:.2f} of column {name}")

    def digit(self):
        """How wide a digit of the workbook's usual font is on this machine, in hundredths of a millimetre."""
        style = self.document.StyleFamilies.getByName("CellStyles").getByName("Default")
        font = uno.createUnoStruct("com.sun.star.awt.FontDescriptor", Name=style.CharFontName, Height=1000)
        device = self.toolkit.createScreenCompatibleDevice(1, 1)
        return device.getFont(font).getStringWidth("0") / font.Height * style.CharHeight * HUNDREDTHS_IN_A_POINT

    def instruments(self):
        quotes = self.sheets.getByName(QUOTES)
        kinds = [kind for ticker, kind in quotes.getCellRangeByName("A2:B400").getDataArray() if ticker and kind]
        self.expect(kinds[-len(KINDS) :] == KINDS, f"types {kinds[-len(KINDS):]} of the added instruments")

    CHECKS = {
        "header lines": header,
        "records and their shading": records,
        "links that follow the quote": link,
        "frames": frame,
        "column widths": widths,
        "instruments": instruments,
    }


def opened(desktop, path):
    """A document without a window, whose macros may run as the profile has it."""
    options = {"Hidden": True, "MacroExecutionMode": USE_CONFIG}
    values = (uno.createUnoStruct("com.sun.star.beans.PropertyValue", Name=n, Value=v) for n, v in options.items())
    return desktop.loadComponentFromURL(Path(path).resolve().as_uri(), "_blank", 0, tuple(values))


def records_of(document):
    """How many rows below the header line hold a record."""
    rows = document.Sheets.getByName(SETTINGS).getCellRangeByName("A2:A2000").getDataArray()
    return max((number + 1 for number, (text,) in enumerate(rows) if text), default=0)


def check(context, before, path, names=tuple(Result.CHECKS)):
    """The result after its checks of those names."""
    desktop, toolkit = (
        context.ServiceManager.createInstanceWithContext(name, context)
        for name in ("com.sun.star.frame.Desktop", "com.sun.star.awt.Toolkit")
    )
    document = opened(desktop, before)
    records = records_of(document)
    document.close(True)
    result = Result(opened(desktop, path), records, toolkit)
    for name in names:
        Result.CHECKS[name](result)
    result.document.close(True)
    return result


def main(pipe, before, *paths):
    context = office(pipe)
    failed = False
    for path in paths:
        result = check(context, before, path)
        name = Path(path).name
        failed = failed or bool(result.faults)
        for fault in result.faults:
            print(f"{name}: {fault}", file=sys.stderr)
        print(f"{name}, opened again: {', '.join(Result.CHECKS)}: {result.count - len(result.faults)} of {result.count} hold")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))

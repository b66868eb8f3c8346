"""Checks what the demo has left in the workbook.

    demo_check.py target WORKBOOK                  names a sheet that can take tapes
    demo_check.py result BEFORE AFTER TARGET       compares; says each thing that is not as it should be
"""

import re
import sys

from xlsx import Workbook

QUOTES, SETTINGS = "TWS_Quotes", "Ticker_tape_settings"
KINDS = ["STK", "OPT", "FUT", "IND", "FOP", "CASH"]


def target_among(sheets):
    others = [name for name in sheets if name not in (QUOTES, SETTINGS)]
    # A plain name: the play types it.
    plain = [name for name in others if re.fullmatch(r"[A-Za-z_]\w*", name, re.ASCII)]
    return (plain or [QUOTES])[0]


def target(path):
    print(target_among(Workbook(path).sheets))


def place_of(refers_to):
    """Column letters and row of a name's first cell; row 1 for whole columns."""
    match = re.search(r"!\$?([A-Z]+)(?:\$?(\d+))?", refers_to)
    return match.group(1), int(match.group(2) or 1)


def result(before, after, sheet_name):
    old, new = Workbook(before), Workbook(after)
    faults = []

    def expect(found, wanted, what):
        if found != wanted:
            faults.append(f"{what}: {found!r} instead of {wanted!r}")

    # The records, below the last one.
    column, _ = place_of(new.names["Tape_header_for_Ticker"])
    columns = [chr(ord(column) + n) for n in range(4)]
    settings = new.sheets[SETTINGS]
    first = old.sheets[SETTINGS].last_row(column) + 1
    for row, location, header in ((first, f"{sheet_name}!K3:M22", "last price"), (first + 1, None, "ask price")):
        title, link, size, where = (f"{c}{row}" for c in columns)
        expect(settings.value(title).endswith(f"({header})"), True, f"{title} is the header '{settings.value(title)}'")
        expect(bool(re.fullmatch(r"=TWS_Quotes!\$[A-Z]+\$\d+", settings.formula(link))), True, f"{link} is a link")
        if location:
            expect(settings.value(where), location, where)
            expect(settings.value(size).endswith("(last size)"), True, f"{size} is the size header")
        expect([settings.filled(f"{c}{row}") for c in columns], [row % 2 == 0] * 4, f"row {row} shaded")

    # The tape with a size column: header line, widths, frame.
    sheet = new.sheets[sheet_name]
    expect(sheet.value("K3"), "Local Time", "K3")
    expect(sheet.value("L3"), settings.value(f"{columns[0]}{first}"), "L3")
    expect(sheet.value("M3"), settings.value(f"{columns[2]}{first}"), "M3")
    for letter in "KLM":
        # The file's width counts the cell's margins as well.
        expect(10 <= sheet.width(letter) < 11, True, f"width {sheet.width(letter)} of column {letter}")
    for cell, edges in (("K3", "left top"), ("M3", "right top"), ("K22", "left bottom"), ("M22", "right bottom"), ("L10", "")):
        expect(sheet.borders(cell), {edge: "dashDotDot" for edge in edges.split()}, f"borders of {cell}")
    expect(sheet.value("K30"), "Local Time", "K30")

    # The instruments, one of each type.
    ticker, _ = place_of(new.names["TWS_Symbol"])
    kind = chr(ord(ticker) + 1)
    quotes = new.sheets[QUOTES]
    last = quotes.last_row(ticker)
    expect([quotes.value(f"{kind}{row}") for row in range(last - 5, last + 1)], KINDS, "types of the added instruments")

    for fault in faults:
        print(fault, file=sys.stderr)
    return 1 if faults else 0


if __name__ == "__main__":
    if sys.argv[1] == "target":
        target(sys.argv[2])
    else:
        sys.exit(result(*sys.argv[2:]))

#!/usr/bin/python3
"""Plays the user of the demo in LibreOffice.

    demo_office.py PIPE FOLDER RESULT     plays in the running program; pictures and calls.txt go to FOLDER, the workbook
                                          to RESULT.ods and RESULT.xlsx
"""

import os
import pathlib
import sys

import uno

_ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path += [str(_ROOT / "tests" / "libreoffice"), str(_ROOT / "tests" / "windows")]
from demo_check import QUOTES, SETTINGS, target_among  # noqa: E402
from demo_play import INSTRUMENTS, Play  # noqa: E402
from office_player import OfficePlayer, PlayError  # noqa: E402
from sheet import Sheet  # noqa: E402

PICKING = "Ticker tape: Area"
# The caption of what the macros tell.
MACROS = "Quote workbook"


class OfficePlay(Play):
    """The same story, begun by the workbook's buttons or its menu, with the place of a tape picked by the mouse."""

    def __init__(self, player, out, result=None):
        self.result = result or str(out / "result")
        self.sheet = Sheet(player)
        super().__init__(player, out, "work", 96, target_among(self.sheet.document.Sheets.ElementNames))
        self.calls = (out / "calls.txt").open("w", encoding="utf-8")

    def told(self, line):
        print(line, file=self.calls, flush=True)

    def picture(self, window, name):
        self.player.picture(window, self.out / f"{name}.png")

    def whole_picture(self, name):
        self.player.whole_picture(self.out / f"{name}.png")

    def ticker(self, instruments, row):
        # The list has a row for each one of the sheet, below its header line.
        return self.sheet.document.Sheets.getByName(QUOTES).getCellByPosition(0, row).String

    def pick(self):
        """Takes part in the conversation: the dialog has gone, the program asks for the place."""
        box = self.player.wait(PICKING)
        self.whole_picture("picking")
        self.sheet.drag((10, 29), (12, 39))
        self.player.gone(box)

    def play(self):
        self.sheet.maximise()
        self.sheet.show(self.target)
        self.sheet.start("Choose fields...")
        self.project()
        self.told("ChooseQuoteFields: " + self.player.answer(MACROS, "OK", self.out / "chosen.png"))
        before = self.instruments()
        self.sheet.start("Add instruments...")
        self.symbols()
        added = self.player.until(
            "the instruments in the sheet", lambda: self.instruments()[len(before) + len(INSTRUMENTS) - 1 :] and self.instruments()
        )[len(before) :]
        self.told("AddInstruments: " + ", ".join(added))
        self.sheet.start("Set up tapes...")
        self.tape()
        self.sheet.show(self.target)
        self.whole_picture("sheet")
        self.sheet.show(SETTINGS)
        self.told("SetUpTapes: " + "; ".join(self.records()))
        self.whole_picture("settings")
        self.sheet.show(self.target)
        self.sheet.start("Set up tapes...")
        self.look()
        self.told("SetUpTapes: shown again, closed")
        self.sheet.start("Let the library go")
        self.told("ReleasePellora: done")
        self.save()

    def instruments(self):
        quotes = self.sheet.document.Sheets.getByName(QUOTES)
        area = quotes.getCellRangeByName("A2:B400").getDataArray()
        return [" ".join(filter(None, map(str, row))) for row in area if row[0]]

    def records(self):
        rows = self.sheet.document.Sheets.getByName(SETTINGS).getCellRangeByName("A2:D50").getFormulaArray()
        return [" | ".join(row) for row in rows if row[0]]

    def save(self):
        for ending, kind in ((".ods", "calc8"), (".xlsx", "Calc MS Excel 2007 XML")):
            filter_name = uno.createUnoStruct("com.sun.star.beans.PropertyValue", Name="FilterName", Value=kind)
            self.sheet.document.storeToURL(pathlib.Path(self.result + ending).as_uri(), (filter_name,))


def main(pipe, folder, result):
    with OfficePlayer(pipe) as player:
        OfficePlay(player, pathlib.Path(folder).resolve(), os.path.abspath(result)).play()


if __name__ == "__main__":
    try:
        main(*sys.argv[1:])
    except PlayError as error:
        sys.exit(f"the play: {error}")

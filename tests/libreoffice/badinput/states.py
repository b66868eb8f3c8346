"""What the tests look at before and after, and the steps that they share."""

TAPE, PROJECT, TICKER = "Ticker tape", "Choose market data fields for project ", "Add new ticker"
SETTINGS = "Ticker_tape_settings"


def cells(book):
    """All that a workbook holds, and where its user is."""
    areas = []
    for sheet in (book.Sheets.getByName(name) for name in book.Sheets.ElementNames):
        cursor = sheet.createCursor()
        cursor.gotoEndOfUsedArea(False)
        end = cursor.RangeAddress
        areas.append(sheet.getCellRangeByPosition(0, 0, end.EndColumn, end.EndRow).FormulaArray)
    view = book.CurrentController
    return areas, view.ActiveSheet.Name, view.Selection.AbsoluteName, book.hasControllersLocked()


def insert(desk, text, *steps, button="Insert"):
    """Types a place in the open tape dialog and inserts; answers what the dialogs said that the steps answer."""
    desk.wait(TAPE)
    desk.hand("put", TAPE, 2, text)
    desk.press(TAPE, button)
    said = []
    for title, answer in steps:
        said.append(" ".join(desk.wait(title)[1]))
        desk.press(title, answer)
        desk.gone(title)
    return said


def close_tape(desk, number):
    desk.press(TAPE, "Cancel")
    return desk.end(number)

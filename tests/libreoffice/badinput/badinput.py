"""What goes wrong around the installed extension: badinput.py PIPE PID FOLDER

Prints a line "ok NAME" or "not ok NAME" a test. In the end the program is told to end while a dialog is open.
"""

import os
import random
import sys
from pathlib import Path

from desk import Desk, root  # noqa: F401, it lets the next lines find their modules
from installed import check
from nested import nested
from places import some
from unrelated import unrelated

TAPE, PROJECT, TICKER = "Ticker tape", "Choose market data fields for project ", "Add new ticker"
SETTINGS = "Ticker_tape_settings"
BUSY = "440 "


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


def places(desk):
    book = desk.open()
    book.Sheets.getByName(SETTINGS).getCellRangeByName("A9:D9").setFormulaArray((("X", "=1", "", "nosuch!A1:B9"),))
    before = cells(book)
    desk.run("Take", book)
    number = desk.start("Tape")
    desk.wait(TAPE)
    said = desk.places(("nosuch!A1:B9", "'no such'!A1:B9", "Desk", "Desk!ZZZ", "Desk!A1:A2"))
    check("a sheet that is not there is an address error", lambda: (said[:2], ["Range Address Error"] * 2))
    check("a place without a sheet, or that is none, is refused", lambda: (
        said[2:4], ["You must select Sheet name for the Range", "Range Address Error"]))
    check("a place that is too small is refused", lambda: (said[4][:24], "Error: 'Tape location'  "))
    check("refused places leave everything as it was", lambda: (cells(book) == before, True))
    random.seed(7)
    answers = desk.places(some(48))
    strange = {text: said for text, said in zip(some(48), answers) if said.startswith(("Error: An error occurred", "nothing"))}
    check("strange places are refused or taken, each with a message of ours", lambda: (strange, {}))
    desk.clear()
    check("the dialog ends after them", lambda: (desk.end(number), "CLOSE"))
    check("where the user was has not changed", lambda: (cells(book)[1:], before[1:]))
    desk.run("Unload")
    book.close(True)


def read_only(desk):
    for name in ("a file opened for reading only", "a protected settings sheet"):
        book = desk.open(ReadOnly=name.startswith("a file"))
        if not name.startswith("a file"):
            book.Sheets.getByName(SETTINGS).protect("")
        before = cells(book)
        desk.run("Take", book)
        number = desk.start("Tape")
        said = insert(desk, "Desk!M3:O9", ("Error", "Abort"))
        check(f"{name} is told of", lambda: (said, ["An error occurred in Pellora"]))
        desk.clear()
        check(f"{name}: the call ends", lambda: (desk.end(number), "CLOSE"))
        check(f"{name}: no cell has changed", lambda: (cells(book)[0] == before[0], True))
        check(f"{name}: the screen is on again", lambda: (cells(book)[3], False))
        desk.run("Unload")
        book.close(True)


def missing_sheet(desk):
    book = desk.open()
    desk.run("Take", book)
    number = desk.start("Tape")
    desk.wait(TAPE)
    book.Sheets.removeByName(SETTINGS)
    before = cells(book)
    said = insert(desk, "Desk!M3:O9", ("Error", "Abort"))
    check("a settings sheet deleted meanwhile is told of", lambda: (said, ["An error occurred in Pellora"]))
    check("the call ends without it", lambda: (desk.end(number), "CLOSE"))
    check("nothing is written without it, and the screen is on again", lambda: (cells(book) == before, True))
    desk.run("Unload")
    book.close(True)


def closing(desk):
    """The program itself refuses to close a document that a dialog is over."""
    for macro, title, inner in (("Project", PROJECT, None), ("Symbol", TICKER, None), ("Symbol", TICKER, "Edit exchanges list"),
                                ("Tape", TAPE, None), ("Tape", TAPE, "Insert")):
        name = f"{macro}{' with a dialog above' if inner else ''}"
        book = desk.open()
        desk.run("Take", book)
        number = desk.start(macro)
        desk.wait(title)
        if inner:
            desk.press(title, inner)
            desk.until("the dialog above", lambda: len(desk.windows()) == 2)
        check(f"{name}: a document is not closed under a dialog", lambda: (refused(lambda: book.close(True)), True))
        desk.clear()
        check(f"{name}: the call ends", lambda: (bool(desk.end(number)), True))
        book.close(True)
        check(f"{name}: the program lives", lambda: (desk.alive(), True))
    book = desk.open()
    number = desk.start("Tape")
    desk.wait(TAPE)
    desk.clear()
    check("an application whose document is gone harms nothing", lambda: (desk.end(number), "CLOSE"))
    check("the same object takes another application", lambda: (desk.run("Hand", book), "handed"))
    desk.run("Unload")
    number = desk.start("Tape")
    insert(desk, "Desk!M3:O9")
    check("it works with that", lambda: (desk.end(number), "CLOSE"))
    check("it wrote there", lambda: (book.Sheets.getByName("Desk").getCellRangeByName("M3").String, "Local Time"))
    desk.run("Unload")
    book.close(True)


def refused(action):
    try:
        action()
    except Exception:  # noqa: BLE001, whatever it is
        return True
    return False


def two_documents(desk):
    first, second = desk.open(), desk.open()
    desk.run("Take", first)
    before = cells(first), cells(second)
    number = desk.start("Tape")
    insert(desk, "Desk!M3:O9")
    desk.end(number)
    after = cells(first), cells(second)
    check("a tape goes to the active workbook, whose application it was not", lambda: (
        [a == b for a, b in zip(before, after)], [True, False]))
    desk.run("Unload")
    first.close(True)
    second.close(True)


def closed_document(desk):
    """The application of a document that is gone, with another document in front."""
    for name, kept in (("opened afterwards", False), ("kept", True)):
        second, first = desk.open(), desk.open()
        desk.run("Take", first)
        if kept:
            number = desk.start("Tape")
            desk.wait(TAPE)
            close_tape(desk, number)
        first.close(True)
        before = cells(second)
        errors = insert_through_errors(desk, desk.start("Tape"), "Desk!M3:O9")
        if not kept:
            check(f"a dialog {name} tells that its document is gone", lambda: (errors > 0, True))
        check(f"a dialog {name} writes nothing into the document in front", lambda: (cells(second) == before, True))
        desk.run("Unload")
        second.close(True)


def insert_through_errors(desk, number, text):
    """Inserts a tape, or tries to: each error dialog is answered with Abort; tells how many there were."""
    errors, inserted = 0, False

    def ended():
        nonlocal errors, inserted
        windows = desk.windows()
        if windows and windows[-1][0] == "Error":
            errors += 1
            desk.press("Error", "Abort")
        elif windows and windows[-1][0] == "Vantix":
            desk.press("Vantix", "OK")
        elif windows and windows[-1][0] == TAPE and not inserted:
            inserted = True
            # A dialog that could read no instruments has no headers of its own.
            for box, entry in enumerate(("One", "Two", text)):
                desk.hand("put", TAPE, box, entry)
            desk.press(TAPE, "Insert")
        elif windows and windows[-1][0] == TAPE:
            desk.press(TAPE, "Cancel")
        return desk.hand("outcome", number)

    desk.until("the call's end", ended)
    return errors


def second_call(desk):
    book = desk.open()
    desk.run("Take", book)
    number = desk.start("Project")
    desk.wait(PROJECT)
    said = desk.run("Tape")
    check("a call during a call is refused", lambda: ((said[:4], "(-2147221404)" in said), (BUSY, True)))
    other = desk.script("Tape").invoke((), (), ())[0]
    check("a call of another process during a call is refused", lambda: (other[:2], "5 "))
    desk.press(PROJECT, "Cancel")
    check("the first call is not disturbed", lambda: (desk.end(number), "False 0"))
    check("a call afterwards works", lambda: (desk.answer("Project", (PROJECT, "Cancel"))[0], "False 0"))
    wrong = desk.run("Wrong")
    check("wrong arguments of all kinds are refused or harmless", lambda: (len(wrong) > 0 and desk.alive(), True))
    book.close(True)


def settings(desk):
    file = Path(os.environ["XDG_CONFIG_HOME"]) / "pellora/settings"
    check("settings are kept", lambda: (file.is_file(), True))
    good = file.read_bytes()
    for name, damage in (("damaged", b"\xff\x00[[[=\n" * 50), ("empty", b""), ("cut off", good[: len(good) // 2])):
        file.write_bytes(damage)
        check(f"a {name} settings file still gives a dialog", lambda: (desk.answer("Symbol", (TICKER, "Cancel"))[0], "2 "))
    file.unlink()
    file.mkdir()
    number = desk.start("Symbol")
    count = 0
    while not desk.hand("outcome", number):
        windows = desk.windows()
        if windows and count < 60:
            count += 1
            desk.pressed(windows[-1][0], "Ignore" if "Ignore" in windows[-1][2] else "Cancel")
    check("settings that cannot be read are told of, and the call ends", lambda: (desk.end(number), "2 "))
    file.rmdir()
    file.write_bytes(good)
    desk.run("Drop")
    home, config = os.environ["HOME"], os.environ["XDG_CONFIG_HOME"]
    desk.hand("environment", "HOME", "/nonexistent")
    desk.hand("environment", "XDG_CONFIG_HOME", "")
    book = desk.open()
    desk.run("Take", book)
    number = desk.start("Symbol")
    while not desk.hand("outcome", number):
        windows = desk.windows()
        if windows:
            desk.pressed(windows[-1][0], "Ignore" if "Ignore" in windows[-1][2] else "Cancel")
    check("without a home the call ends", lambda: (desk.end(number), "2 "))
    desk.run("Drop")
    desk.hand("environment", "HOME", home)
    desk.hand("environment", "XDG_CONFIG_HOME", config)
    book.close(True)


def ending(desk):
    book = desk.open()
    desk.run("Take", book)
    number = desk.start("Tape")
    desk.wait(TAPE)
    check("the program does not end while a dialog is open", lambda: (desk.desktop.terminate(), False))
    check("the dialog goes on", lambda: (close_tape(desk, number), "CLOSE"))
    desk.start("Symbol")
    desk.wait(TICKER)


def main(*arguments):
    desk = Desk(*arguments)
    # The program ends when its last document is closed.
    desk.open()
    for part in (places, read_only, missing_sheet, closing, two_documents, closed_document, unrelated, second_call, nested, settings):
        try:
            part(desk)
        except Exception as error:  # noqa: BLE001, the next part may hold
            print(f"not ok {part.__name__} ran to its end ({type(error).__name__}: {' '.join(str(error).split())[:300]})", flush=True)
        desk.clear()
    ending(desk)


if __name__ == "__main__":
    main(*sys.argv[1:])

"""What goes wrong around the installed extension: badinput.py PIPE PID FOLDER [last]

Prints a line "ok NAME" or "not ok NAME" a test. In the end a dialog is open, for the program to be told to end; with "last"
there is one document only, and the user has ended the program.
"""

import random
import sys

from desk import Desk  # it lets the next lines find their modules
from installed import check
from leaving import closed_by_macro, closed_by_user, extension, macros_elsewhere, name_of, window_gone
from places import some
from states import PROJECT, SETTINGS, TAPE, TICKER, cells, close_tape, insert
from stored import settings
from user import User

BUSY = "440 "


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
    strange = {text: said for text, said in zip(some(48), answers) if said.startswith(("Error: 1", "nothing"))}
    check("strange places are refused or taken, each with a message of ours", lambda: (strange, {}))
    desk.clear()
    check("the dialog ends after them", lambda: (desk.end(number), "CLOSE"))
    check("where the user was has not changed", lambda: (cells(book)[1:], before[1:]))
    desk.run("Unload")
    book.close(True)


def typed_places(desk, user):
    """Sheets and documents that there are, or are not, elsewhere; by a user's own keys."""
    other, book = desk.open(), desk.open()
    desk.run("Take", book)
    before = cells(other), cells(book)
    number = desk.start("Tape")
    dialog = user.wait(TAPE)
    for text in ("nosuch!A1:C20", "[other.ods]Sheet1!A1:C20", f"[{name_of(other)}]Desk!A1:C20"):
        user.fill(dialog, dialog.box(2), text)
        user.press(dialog, "Insert & new")
        check(f"typed, {text[:14]} is refused", lambda: (user.answer("Vantix", "OK"), "Range Address Error"))
        dialog = user.wait(TAPE)
        check(f"{text[:14]} stands there to be mended", lambda: ((dialog.box(2).text, dialog.has_focus(dialog.box(2))), (text, True)))
    user.key("Escape")
    check("the dialog ends after what was typed", lambda: (desk.end(number), "CLOSE"))
    check("what was typed has changed nothing", lambda: ((cells(other), cells(book)) == before, True))
    desk.run("Unload")
    other.close(True)
    book.close(True)


def read_only(desk, user):
    for name, reason in (("a file opened for reading only", "the document is open for reading only"),
                         ("a protected settings sheet", "the sheet is protected")):
        book = desk.open(ReadOnly=name.startswith("a file"))
        if not name.startswith("a file"):
            book.Sheets.getByName(SETTINGS).protect("")
        book.CurrentController.select(book.Sheets.getByName("Desk").getCellRangeByName("B2:C5"))
        before = cells(book)
        desk.run("Take", book)
        number = desk.start("Tape")
        insert(desk, "Desk!M3:O9")
        report = user.report()
        check(f"{name} is told of", lambda: (f"Error: 1004, (The cells cannot be written: {reason}) in Pellora.frmAddRibbon.AddSymbolToSheet" in report, True))
        check(f"{name}: each failure is told", lambda: (desk.ignore(number) > 1, True))
        check(f"{name}: the call ends", lambda: (desk.end(number), "CLOSE"))
        check(f"{name}: the user is where he was", lambda: (cells(book)[1:], before[1:]))
        written = cells(book)[0]
        number = desk.start("Tape")
        said = insert(desk, "Desk!U3:W9", ("Error", "Abort"))
        check(f"{name} is told of again", lambda: (said, ["An error occurred in Pellora"]))
        desk.clear()
        check(f"{name}: the call that was broken off ends", lambda: (desk.end(number), "CLOSE"))
        check(f"{name}: no cell has changed", lambda: (cells(book)[0] == written, True))
        check(f"{name}: the screen is on again", lambda: (cells(book)[3], False))
        settings_of = book.Sheets.ElementNames.index(SETTINGS)
        check(f"{name}: nothing is recorded", lambda: (cells(book)[0][settings_of] == before[0][settings_of], True))
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
        first, second = desk.open(), desk.open()
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
    # Basic has lost the variables of the first call by then.
    desk.run("Project")
    desk.press(PROJECT, "Check all")
    desk.press(PROJECT, "Create project")
    check("the same call during a call, by the same macro, crashes nothing", lambda: (desk.end(number)[:4], BUSY))
    check("a call afterwards works", lambda: (desk.answer("Project", (PROJECT, "Cancel"))[0], "False 0"))
    wrong = desk.run("Wrong")
    check("wrong arguments of all kinds are refused or harmless", lambda: (len(wrong) > 0 and desk.alive(), True))
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


def run(desk, part, *others):
    try:
        part(desk, *others)
    except Exception as error:  # noqa: BLE001, the next part may hold
        print(f"not ok {part.__name__} ran to its end ({type(error).__name__}: {' '.join(str(error).split())[:300]})", flush=True)
    desk.clear()


def last_window(desk, user):
    """A user with one document, and a macro that keeps its object: he closes the window, then the program."""
    book = desk.open()
    desk.run("Take", book)
    number = desk.start("Tape")
    user.wait(TAPE)
    user.close(name_of(book))
    user.key_to(name_of(book), "ctrl+q")
    user.wait(TAPE)
    check("a user closes no last window under a dialog", lambda: (desk.is_open(book), True))
    user.key("Escape")
    check("the dialog over the last window ends", lambda: (desk.end(number), "CLOSE"))
    user.close(name_of(book))
    check("a user closes the last window", lambda: (desk.closed(book), True))
    check("the object lives on without a window", lambda: (desk.answer("Project", (PROJECT, "Cancel"))[0], "False 0"))
    # What the program shows without a document.
    user.end_by("LibreOffice", "ctrl+q")


def main(pipe, pid, folder, *only):
    desk, user = Desk(pipe, pid, folder), User(pipe)
    if only:
        return last_window(desk, user)
    # The program ends when its last document is closed.
    desk.open()
    for part in (places, missing_sheet, closing, two_documents, closed_document, macros_elsewhere, second_call):
        run(desk, part)
    for part in (read_only, typed_places, closed_by_user, closed_by_macro, window_gone, settings):
        run(desk, part, user)
    run(desk, extension)
    ending(desk)


if __name__ == "__main__":
    main(*sys.argv[1:])

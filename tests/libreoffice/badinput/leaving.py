"""What goes while it is in use: documents that their user closes, documents of macros, the extension itself."""

from desk import MACROS, root, value
from installed import check
from office_profile import Quiet
from states import TAPE, TICKER, cells, close_tape, insert

NAME, FILE = "pellora.extension", "pellora.oxt"
CLOSING_KEYS = ("ctrl+w", "ctrl+F4", "ctrl+q", "alt+F4")


def name_of(book):
    return book.URL.rsplit("/", 1)[1]


def closed_by_user(desk, user):
    """The windows of documents, under a dialog and after it, by their close boxes and by keys."""
    other, book = desk.open(), desk.open()
    desk.run("Take", book)
    book.Sheets.getByName("Desk").getCellRangeByName("B2").String = "typed"
    before = cells(other), cells(book)
    number = desk.start("Tape")
    user.wait(TAPE)
    for document in (book, other):
        user.close(name_of(document))
        user.key_to(name_of(document), *CLOSING_KEYS)
    # The answer to a key comes after everything that was asked before it.
    dialog = user.wait(TAPE)
    user.fill(dialog, dialog.box(2), "Desk!M3:O9")
    check("a user closes no document under a dialog", lambda: ((cells(other), cells(book)) == before, True))
    user.key("Escape")
    check("the dialog was not disturbed", lambda: (desk.end(number), "CLOSE"))
    user.key_to(name_of(other), "ctrl+w")
    check("the keys close it afterwards", lambda: (desk.closed(other), True))
    user.close(name_of(book))
    user.answer("Save Document?", "Don’t Save")
    check("its close box asks for what was typed", lambda: (desk.closed(book), True))
    check("an application whose window the user closed harms nothing", lambda: (len(desk.run("Place", "Desk!A1")) > 0, True))
    desk.run("Unload")


def closed_by_macro(desk, user):
    """A macro that closes its workbook as soon as the dialog has ended, before the program has done with its windows."""
    for _ in range(2):
        book = desk.open()
        desk.run("Take", book)
        number = desk.start("TapeAndClose", book)
        dialog = user.wait(TAPE)
        # An assistive program reads the tables.
        for index in (0, 1):
            user.table(dialog.grid(index))
        user.choose_row(dialog, dialog.grid(0), 2)
        user.key("Escape")
        check("a macro closes its workbook right after a dialog", lambda: (desk.end(number), "CLOSE"))
        desk.run("Unload")
    check("the program lives after that", lambda: (desk.alive(), True))


def window_gone(desk, user):
    """Another macro takes the document's window away; the program does not refuse that."""
    for inner in ("", "Vantix", "Error"):
        book = desk.open(ReadOnly=bool(inner == "Error"))
        desk.run("Take", book)
        number = desk.start("Tape")
        dialog = user.wait(TAPE)
        user.table(dialog.grid(0))
        if inner:
            desk.hand("put", TAPE, 2, "Desk!M3:O9" if inner == "Error" else "nosuch!A1")
            desk.press(TAPE, "Insert")
            user.wait(inner)
        book.CurrentController.Frame.dispose()
        check(f"the tape dialog{' below ' + inner if inner else ''} ends with the window that it is over", lambda: (desk.end(number), "CLOSE"))
        desk.run("Unload")
        book.close(True)
    check("the program lives without those windows", lambda: (desk.alive(), True))


def macros_elsewhere(desk):
    """The macros of one document at work in another; then the document of the macros is closed."""
    host = desk.desktop.loadComponentFromURL("private:factory/scalc", "_blank", 0, (value("MacroExecutionMode", 4),))
    host.BasicLibraries.VBACompatibilityMode = True
    desk.add_macros(host.BasicLibraries.getByName("Standard"), "Macros", MACROS)
    book = desk.open()
    desk.run("Take", book, document=host)
    number = desk.start("Tape", document=host)
    insert(desk, "Desk!M3:O9")
    check("a macro of another document makes a tape", lambda: (desk.end(number), "CLOSE"))
    check("it is in the workbook", lambda: (book.Sheets.getByName("Desk").getCellRangeByName("M3").String, "Local Time"))
    before = cells(book)
    number = desk.start("Tape", document=host)
    desk.wait(TAPE)
    host.close(True)
    check("the document of a macro goes while its dialog is open", lambda: (desk.closed(host), True))
    check("the dialog goes on, and ends", lambda: (close_tape(desk, number), "CLOSE"))
    check("the workbook has lost nothing, and the program lives", lambda: (cells(book) == before, True))
    book.close(True)


def extension(desk):
    """Removed, added and replaced by the user while it is in use."""
    manager = desk.context.getValueByName("/singletons/com.sun.star.deployment.ExtensionManager")
    package = (root / "build/native" / FILE).as_uri()

    def remove():
        manager.removeExtension(NAME, FILE, "user", manager.createAbortChannel(), Quiet())

    def add():
        manager.addExtension(package, (), "user", manager.createAbortChannel(), Quiet())

    def is_there():
        return len(manager.getDeployedExtensions("user", manager.createAbortChannel(), Quiet())) > 0

    book = desk.open()
    desk.run("Take", book)
    in_use(desk, book, "removed", remove, "M3:O9")
    check("it is gone", lambda: (is_there(), False))
    check("after that the object works on", lambda: (desk.answer("Symbol", (TICKER, "Cancel"))[0], "2 "))
    in_use(desk, book, "added again", add, "Q3:S9")
    in_use(desk, book, "replaced", add, "U3:W9")
    check("it is there", lambda: (is_there(), True))
    desk.run("Unload")
    remove()
    check("removed without a dialog, its object works on", lambda: (desk.answer("Symbol", (TICKER, "Cancel"))[0], "2 "))
    check("its object goes", lambda: (desk.run("Drop"), "dropped"))
    add()
    check("a new one is made", lambda: (desk.run("Take", book), "taken"))
    book.close(True)


def in_use(desk, book, how, change, place):
    number = desk.start("Tape")
    desk.wait(TAPE)
    change()
    insert(desk, f"Desk!{place}")
    check(f"the extension is {how} under a dialog, which goes on", lambda: (desk.end(number), "CLOSE"))
    sheet = book.Sheets.getByName("Desk")
    check(f"with the extension {how} the tape is made", lambda: (sheet.getCellRangeByName(place).getCellByPosition(0, 0).String, "Local Time"))

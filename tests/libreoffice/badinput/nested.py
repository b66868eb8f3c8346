"""Macros that call while a dialog is open, as those of events and timers do."""

from desk import root
from installed import check
from macros_extension import MODULE, module_text

MESSAGE = "Quote workbook"
PROJECT, TICKER, TAPE = "Choose market data fields for project ", "Add new ticker", "Ticker tape"
BUSY = "440 "


def the_same_method(desk, macro, title, answered, *buttons):
    """One call of the same method of the same object, with nothing else between."""
    number = desk.start(macro)
    desk.wait(title)
    said = desk.run(macro)
    check(f"{macro} during {macro} is refused", lambda: ((said[:4], "(-2147221404)" in said), (BUSY, True)))
    for button in buttons:
        desk.press(title, button)
    check(f"{macro} answers as if nothing had been called meanwhile", lambda: (desk.end(number), answered))
    check(f"{macro}: the program lives", lambda: (desk.alive(), True))


def nested(desk):
    book = desk.open()
    desk.run("Take", book)
    the_same_method(desk, "Symbol", TICKER, "2 ", "Cancel")
    the_same_method(desk, "Project", PROJECT, "False 0", "Cancel")
    the_same_method(desk, "Project", PROJECT, "True 1", "Check all", "Create project")
    the_same_method(desk, "Tape", TAPE, "CLOSE", "Cancel")
    several_calls(desk)
    dropped(desk)
    told_by_the_sample(desk)
    book.close(True)


def several_calls(desk):
    number = desk.start("Project")
    desk.wait(PROJECT)
    said = [desk.run(macro)[:4] for macro in ("Tape", "Symbol", "Project", "Symbol", "Project")]
    check("every call during a call is refused", lambda: (said, [BUSY] * 5))
    desk.press(PROJECT, "Check all")
    desk.press(PROJECT, "Create project")
    check("the variables of the first call are written all the same", lambda: (desk.end(number), "True 1"))


def dropped(desk):
    number = desk.start("Project")
    desk.wait(PROJECT)
    desk.run("Project")
    desk.run("Drop")
    desk.press(PROJECT, "Check all")
    desk.press(PROJECT, "Create project")
    check("an object that a macro drops during its call writes the variables", lambda: (desk.end(number), "True 1"))
    check("the program lives without the object", lambda: (desk.alive(), True))


def told_by_the_sample(desk):
    """What the sample's macros make of a refusal."""
    libraries = desk.create("com.sun.star.script.ApplicationScriptLibraryContainer")
    libraries.createLibrary("Sample")
    libraries.getByName("Sample").insertByName(MODULE, module_text(root / "samples/Pellora.bas"))

    def begin(macro):
        address = f"vnd.sun.star.script:Sample.{MODULE}.{macro}?language=Basic&location=application"
        number = desk.hand("start", desk.provider.getScript(address), ())
        return lambda: desk.until(f"the end of {macro}", lambda: desk.hand("outcome", number))
    tapes = begin("SetUpTapes")
    desk.wait(TAPE)
    instruments = begin("AddInstruments")
    told = " ".join(desk.wait(MESSAGE)[1])
    check("the sample tells a user that another dialog is open", lambda: ("another one is still open" in told or told, True))
    desk.press(MESSAGE, "OK")
    instruments()
    desk.press(TAPE, "Cancel")
    tapes()
    begin("ReleasePellora")()
    libraries.removeLibrary("Sample")

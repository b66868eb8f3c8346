"""The tests of samples.sh, in a running program with Pellora.xlsm open: samples.py PIPE SAMPLES FOLDER."""

import pathlib
import sys
import tempfile

_ROOT = pathlib.Path(__file__).resolve().parents[3]
sys.path += [str(_ROOT / "script" / "lib"), str(_ROOT / "tests" / "libreoffice")]
import office_check  # noqa: E402
from demo_check import QUOTES  # noqa: E402
from demo_office import PICKING, OfficePlay  # noqa: E402
from demo_play import PROJECT, TAPE, TICKER  # noqa: E402
from macros_extension import LIBRARY, MODULE, module_text  # noqa: E402
from macros_extension import main as make_extension  # noqa: E402
from office_player import OfficePlayer, PlayError  # noqa: E402, it lets the next line find the program's types
from com.sun.star.beans import PropertyValue  # noqa: E402

BOOK_LIBRARY = "VBAProject"


def report(holds, name, detail=""):
    print(f"ok {name}" if holds else f"not ok {name}: {detail}", flush=True)


def source(libraries, library):
    """The module as it is kept; a file of Excel's has a line of its own on top."""
    libraries.loadLibrary(library)
    text = libraries.getByName(library).getByName(MODULE)
    return text.removeprefix("Rem Attribute VBA_ModuleType=VBAModule\n")


def call(provider, library, place, procedure, *arguments):
    name = f"vnd.sun.star.script:{library}.{MODULE}.{procedure}?language=Basic&location={place}"
    return provider.getScript(name).invoke(arguments, (), ())[0]


def test_modules(player, module, folder):
    expected = module_text(module).strip()
    desktop = player.create("com.sun.star.frame.Desktop")
    shown = player.until("the workbook", lambda: desktop.CurrentComponent)
    for name in ("Pellora.ods", "Pellora.xlsm"):
        document = office_check.opened(desktop, folder / name) if name == "Pellora.ods" else shown
        report(source(document.BasicLibraries, BOOK_LIBRARY).strip() == expected, f"{name} holds the module as it is",
               "run samples/make")  # fmt: skip
        answer = call(document.ScriptProvider, BOOK_LIBRARY, "document", "SheetAddress", "My Sheet", "$B$3")
        report(answer == "'My Sheet'!$B$3", f"the module in {name} compiles and runs", f"it answers {answer}")
        if document is not shown:
            document.close(True)


def test_extension(player, samples):
    with tempfile.TemporaryDirectory() as folder:
        made = pathlib.Path(folder) / "made.oxt"
        make_extension(samples / "Pellora.bas", made)
        same = made.read_bytes() == (samples / "PelloraMacros.oxt").read_bytes()
    report(same, "PelloraMacros.oxt holds the module as it is", "run samples/make")
    factory = player.create("com.sun.star.script.provider.MasterScriptProviderFactory")
    answer = call(factory.createScriptProvider(""), LIBRARY, "application", "PlaceOfRange", "$Desk.$B$3")
    report(answer == "Desk!$B$3", "the module in the extension compiles and runs", f"it answers {answer}")


def test_tapes(player, folder):
    """From the menu: a tape by its typed place, one by a picked one; then what is in the saved files."""
    play = OfficePlay(player, folder)
    play.sheet.maximise()
    play.sheet.show(play.target)
    play.sheet.choose("Set up tapes...")
    play.tape()
    report(True, "a user sets up tapes from the menu of an .xlsm")
    play.sheet.choose("Let the library go")
    play.save()


def test_results(player, folder):
    tapes = [name for name in office_check.Result.CHECKS if name != "instruments"]
    for name in ("result.ods", "result.xlsx"):
        faults = office_check.check(player.context, folder / "quotes.xlsx", folder / name, tapes).faults
        report(not faults, f"the tapes are in {name} when it is opened again", "; ".join(faults))


def opened_in_front(player, path):
    desktop = player.create("com.sun.star.frame.Desktop")
    book = desktop.loadComponentFromURL(path.as_uri(), "_blank", 0, (PropertyValue(Name="MacroExecutionMode", Value=4),))
    player.until(f"{path.name} in front", lambda: desktop.CurrentComponent and desktop.CurrentComponent.URL == book.URL)
    return book


def test_button(player, folder):
    book = opened_in_front(player, folder / "Pellora.ods")
    play = OfficePlay(player, folder)
    play.sheet.maximise()
    play.sheet.show("Desk")
    report(play.sheet.has_button("Choose fields..."), "Pellora.ods has its buttons")
    play.sheet.start("Choose fields...")
    close(player, PROJECT)
    report(True, "a button in Pellora.ods shows a dialog")
    play.sheet.start("Let the library go")
    book.close(True)


def test_menu(player, folder):
    """The menu's macros in a workbook without any; each one needs the application, which a library has to ask for."""
    opened_in_front(player, folder / "quotes.xlsx")
    play = OfficePlay(player, folder)
    play.sheet.maximise()
    play.sheet.show(QUOTES)
    play.sheet.choose("Choose fields...")
    close(player, PROJECT)
    test_instruments(player, play)
    play.sheet.show("Desk")
    test_inserted(player, play)
    test_held(player, play)
    test_picking(player, play)
    play.sheet.choose("Let the library go")


def close(player, title):
    dialog = player.wait(title)
    player.key("Escape")
    player.gone(dialog)


def test_instruments(player, play):
    before = len(play.instruments())
    factory = player.create("com.sun.star.script.provider.MasterScriptProviderFactory")
    record = ("DEMO", "OPT", "203012", None, "CALL", 100.0, "SMART", "", "USD")
    call(factory.createScriptProvider(""), LIBRARY, "application", "WriteInstrument", record)
    sheet = play.sheet.document.Sheets.getByName(QUOTES)
    rows = [row for row in sheet.getCellRangeByName("A2:I400").DataArray if row[0]]
    written = tuple(str(cell).removesuffix(".0") for cell in rows[-1])
    expected = ("DEMO", "OPT", "203012", "", "CALL", "100", "SMART", "", "USD")
    report(written == expected, "WriteInstrument writes in an .xlsx below its last instrument", f"there is {written}")
    play.sheet.choose("Add instruments...")
    dialog = player.wait(TICKER)
    for field, text in (("Ticker", "MENU"), ("Primary Exchange", "NYSE")):
        dialog = play.enter(dialog, field, text)
    player.key("Return")
    player.gone(dialog)
    player.until("the instrument in the sheet", lambda: len(play.instruments()) == before + 2)
    report(play.instruments()[-1] == "MENU STK", "the menu adds an instrument to an .xlsx", play.instruments())


def test_inserted(player, play):
    play.sheet.choose("Set up tapes...")
    dialog = player.wait(TAPE)
    player.fill(dialog, dialog.box(2), "Desk!Q3:R9")
    player.press(dialog, "Insert >>")
    player.gone(dialog)
    header = play.sheet.document.Sheets.getByName("Desk").getCellRangeByName("Q3")
    player.until("the tape in the sheet", lambda: header.String == "Local Time")
    report("Desk!Q3:R9" in play.records()[-1], "the menu inserts a tape into an .xlsx", play.records())
    play.sheet.choose("Let the library go")


def place_in(player, play):
    """What the tape dialog comes up with as the place; closes it."""
    play.sheet.choose("Set up tapes...")
    text = player.wait(TAPE).box(2).text
    close(player, TAPE)
    return text


def test_held(player, play):
    play.sheet.choose("Set up tapes...")
    dialog = player.wait(TAPE)
    player.fill(dialog, dialog.box(2), "Desk!C7")
    close(player, TAPE)
    report(place_in(player, play) == "Desk!C7", "the menu's next macro finds the dialog as the one before left it")
    play.sheet.choose("Let the library go")
    report(place_in(player, play) == "", "the menu lets the dialog go")


def test_picking(player, play):
    """Without a place, by Esc, and by letting the library go."""
    play.sheet.choose("Set up tapes...")
    dialog = player.wait(TAPE)
    player.fill(dialog, dialog.box(2), "Desk!C7")
    begin_picking(player)
    player.key("Escape")
    report(player.wait(TAPE).box(2).text == "Desk!C7", "Esc leaves the place of a tape as it was")
    begin_picking(player)
    play.sheet.document.close(True)
    dialog = player.wait(TAPE)
    report(True, "a workbook closed while a place is picked ends the picking")
    close(player, TAPE)


def begin_picking(player):
    dialog = player.wait(TAPE)
    player.click(dialog.button("..."))
    player.gone(dialog)
    player.wait(PICKING)


def main(pipe, samples, folder):
    samples, folder = pathlib.Path(samples), pathlib.Path(folder)
    with OfficePlayer(pipe) as player:
        test_extension(player, samples)
        try:
            test_tapes(player, folder)
            test_results(player, folder)
        except PlayError as error:
            report(False, "a user sets up tapes from the menu of an .xlsm", error)
        test_modules(player, samples / "Pellora.bas", folder)
        try:
            test_button(player, folder)
        except PlayError as error:
            report(False, "a button in Pellora.ods shows a dialog", error)
        try:
            test_menu(player, folder)
        except PlayError as error:
            report(False, "the menu's macros run in an .xlsx", error)


if __name__ == "__main__":
    main(*sys.argv[1:])

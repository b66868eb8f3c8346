"""The tests of samples.sh, in a running program with Pellora.xlsm open: samples.py PIPE SAMPLES FOLDER."""

import pathlib
import sys
import tempfile

_ROOT = pathlib.Path(__file__).resolve().parents[3]
sys.path += [str(_ROOT / "script" / "lib"), str(_ROOT / "tests" / "libreoffice")]
import office_check  # noqa: E402
from demo_office import OfficePlay  # noqa: E402
from macros_extension import LIBRARY, MODULE, module_text  # noqa: E402
from macros_extension import main as make_extension  # noqa: E402
from office_player import OfficePlayer, PlayError  # noqa: E402

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


if __name__ == "__main__":
    main(*sys.argv[1:])

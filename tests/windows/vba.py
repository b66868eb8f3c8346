"""Looks at the VBA module as Excel compiles it, compiles it in LibreOffice's Basic in its VBA mode, and runs what needs
no spreadsheet program: vba.py MODULE FOLDER. Prints a line "ok ...", "not ok ..." or "skip ..." a test. FOLDER becomes
a profile of its own."""

import html
import pathlib
import re
import shutil
import subprocess
import sys

# What is run, and what comes out: expressions as a macro would write them.
CASES = [
    ("a plain sheet needs no quotes", 'SheetAddress("Desk_2", "$B$3")', "Desk_2!$B$3"),
    ("another one is quoted", 'SheetAddress("My tapes", "$B$3")', "'My tapes'!$B$3"),
    ("its own quote is doubled", 'SheetAddress("Ann\'s", "A1")', "'Ann''s'!A1"),
    ("a range picked in LibreOffice is a place", 'PlaceOfRange("$Desk.$B$3:$D$22")', "Desk!$B$3:$D$22"),
    ("also on a sheet with another name", 'PlaceOfRange("$\'Ann\'\'s v1.2\'.$B$3")', "'Ann''s v1.2'!$B$3"),
    ("nothing picked is no place", 'PlaceOfRange("")', ""),
    ("a class that is not there is explained", 'Left(FailureText(429, "", ""), 31)', "The dialogs are not installed f"),
    ("a failure of the class names its source", 'Right(FailureText(-2147221404, "here", ""), 6)', "(here)"),
    ("another failure tells its text", 'FailureText(91, "there", "No object")', "No object (91, there)"),
    ("no number is an empty cell", 'CStr(IsEmpty(NumberOrNothing(0)))', "True"),
    ("a number stays", "CStr(NumberOrNothing(100))", "100"),
    ("a contract has nine cells", 'CStr(UBound(ContractCells("A", "STK", "", 0, "", 0, "S", "N", "U")))', "8"),
    ("the fields are named in their order", "ChosenFields(Flags)", "ask price, volume"),
    ("releasing before any use does nothing", "Released()", "released"),
    ("what is for LibreOffice alone is compiled here", "Aborted()", "aborted"),
]

# Excel's constants of conditional compilation. One that it does not know is empty.
EXCEL = {"vba6": 1, "vba7": 1, "win16": 0, "win32": 1, "win64": 1, "mac": 0, "true": -1, "false": 0}

# What Excel does not have: it compiles the whole module before the first macro, and stops at a name it does not know.
FOREIGN = re.compile(r"\b(\w*Uno\w*|ThisComponent|StarDesktop|GlobalScope|Wait|WaitUntil|BasicLibraries|DialogLibraries"
                     r"|GetProcessServiceManager|ConvertToURL|ConvertFromURL)\b", re.IGNORECASE)  # fmt: skip

# Conditions, and whether Excel compiles what they guard: they are integers, and Not turns every bit.
CONDITIONS = [
    ("VBA6", True), ("Not VBA6", True), ("VBA7 And Win64", True), ("LibreOffice", False), ("Not LibreOffice", True),
    ("VBA6 And LibreOffice", False), ("LibreOffice Or (Win32 And VBA7)", True),
]  # fmt: skip

RUNNER = """Option VBASupport 1
Option Explicit
Function Flags() As Variant
  Dim wanted(0 To 9) As Integer
  wanted(0) = 1
  wanted(9) = 1
  Flags = wanted
End Function
Function Released() As String
  ReleasePellora
  Released = "released"
End Function
Function Aborted() As String
  RangePicking_aborted Nothing
  Aborted = "aborted"
End Function
Sub Main
  Dim file As Integer
  file = FreeFile
  Open "{answers}" For Output As #file
{lines}
  Print #file, "end"
  Close #file
End Sub
"""

SCRIPT = """<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE script:module PUBLIC "-//OpenOffice.org//DTD OfficeDocument 1.0//EN" "module.dtd">
<script:module xmlns:script="http://openoffice.org/2000/script" script:name="{name}" script:language="StarBasic">{text}
</script:module>
"""

LIBRARY = """<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE library:library PUBLIC "-//OpenOffice.org//DTD OfficeDocument 1.0//EN" "library.dtd">
<library:library xmlns:library="http://openoffice.org/2000/library" library:name="Standard" library:readonly="false"
 library:passwordprotected="false">{elements}</library:library>
"""


def holds(condition):
    """Whether Excel compiles what is below #If with that condition."""
    operators = {"not": "~", "and": "&", "or": "|", "(": "(", ")": ")"}
    words = re.findall(r"\w+|\S", condition.lower())
    if strange := [word for word in words if not (word in operators or re.fullmatch(r"\w+", word))]:
        raise ValueError(f"no condition that is understood here: {condition} ({strange[0]})")
    value = [operators.get(word) or (word if word.isdigit() else str(EXCEL.get(word, 0))) for word in words]
    return eval(" ".join(value)) != 0


def seen_by_excel(module):
    """Yields (number, line) of the lines that Excel compiles, without comments and texts."""
    levels = []  # for each open #If: whether this branch is read, and whether one of its branches was
    for number, line in enumerate(module.splitlines(), 1):
        directive = re.match(r"\s*#\s*(If|ElseIf|Else|End\s*If)\b\s*(.*?)(?:\s+Then)?\s*$", line, re.IGNORECASE)
        word = directive[1].lower().replace(" ", "") if directive else ""
        if word == "if":
            levels.append([holds(directive[2])] * 2)
        elif word in ("elseif", "else"):
            read = not levels[-1][1] and (word == "else" or holds(directive[2]))
            levels[-1] = [read, read or levels[-1][1]]
        elif word == "endif":
            levels.pop()
        elif line.lstrip().startswith("#"):
            raise ValueError(f"line {number}: {line}")
        elif all(read for read, _ in levels):
            yield number, re.sub(r'"[^"]*"', '""', line).split("'")[0]


def verdict(name, faults):
    print(f"not ok {name}: {'; '.join(faults)}" if faults else f"ok {name}")


def look(module):
    """The tests of what Excel reads."""
    wrong = [condition for condition, expected in CONDITIONS if holds(condition) != expected]
    verdict("VBA: conditions are taken as Excel takes them", wrong)
    foreign = [f"line {number}: {name}" for number, line in seen_by_excel(module) for name in FOREIGN.findall(line)]
    verdict("VBA: Excel finds no name of another program", foreign)


def office(folder, *arguments):
    command = ["soffice", f"-env:UserInstallation=file://{folder}", "--headless", "--norestore", "--nologo", *arguments]
    try:
        subprocess.run(command, timeout=60, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    except subprocess.TimeoutExpired:
        pass  # an error in a module may be shown, and nobody closes it


def run(module, folder, cases):
    """The answers of the cases, as far as the run came."""
    shutil.rmtree(folder, ignore_errors=True)
    # The first start fills the profile, over whatever is there.
    office(folder, "--terminate_after_init")
    standard = folder / "user" / "basic" / "Standard"
    standard.mkdir(parents=True, exist_ok=True)
    answers = folder / "answers.txt"
    lines = "\n".join(f"  Print #file, {expression}" for _, expression, _ in cases)
    modules = {
        "PelloraDialogs": "Option VBASupport 1\n" + module,
        "Runner": RUNNER.format(answers=answers, lines=lines),
    }
    for name, text in modules.items():
        content = SCRIPT.format(name=name, text=html.escape(text))
        (standard / f"{name}.xba").write_text(content, encoding="utf-8")
    elements = "".join(f'<library:element library:name="{name}"/>' for name in modules)
    (standard / "script.xlb").write_text(LIBRARY.format(elements=elements))
    office(folder, "macro:///Standard.Runner.Main")
    return answers.read_text().splitlines() if answers.exists() else []


def main():
    module = pathlib.Path(sys.argv[1]).read_text(encoding="ascii")
    look(module)
    if not shutil.which("soffice"):
        print("skip the VBA module compiles and runs (LibreOffice is not installed)")
        return
    folder = pathlib.Path(sys.argv[2]).resolve()
    answers = run(module, folder, CASES)
    print(("ok" if answers[-1:] == ["end"] else "not ok") + " the VBA module compiles and its procedures run")
    for number, (name, expression, expected) in enumerate(CASES):
        found = answers[number] if number < len(answers) else "(nothing)"
        print(f"ok VBA: {name}" if found == expected else f"not ok VBA: {name}: '{found}' instead of '{expected}'")


if __name__ == "__main__":
    main()

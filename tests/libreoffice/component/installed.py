"""Uses the installed extension from Basic, and as other processes do: installed.py PIPE PID

Prints a line "ok NAME" or "not ok NAME" a test, and in the end asks the program to end while an object lives.
"""

import sys
import threading
import time
from pathlib import Path

root = Path(__file__).resolve().parents[3]
sys.path.insert(0, str(root / "script/lib"))

import uno  # noqa: E402
from com.sun.star.beans import PropertyValue  # noqa: E402
from com.sun.star.accessibility.AccessibleRole import DIALOG  # noqa: E402
from office_profile import Quiet  # noqa: E402
from office_tests import office  # noqa: E402

# Each function answers its failure, by `handled`: the program would show a box for one that nobody handles, and wait.
MACROS = """
Public kept As Object

Function CreateObjectAnswers(name)
  Set made = CreateObject(name)
  made.UnloadfrmMaster
  CreateObjectAnswers = "made"
End Function

Function ServiceAnswers(name)
  Set made = CreateUnoService(name)
  made.UnloadfrmMaster
  ServiceAnswers = "made"
End Function

Function NewAnswers()
  Dim made As New Pellora.cPellora
  made.UnloadfrmMaster
  NewAnswers = "made"
End Function

Function Keep()
  Set kept = CreateObject("Pellora.cPellora")
  Keep = "kept"
End Function

Function UseKept()
  kept.UnloadfrmMaster
  UseKept = "used"
End Function

Function ManyTimes(count)
  For i = 1 To count
    Set made = CreateObject("Pellora.cPellora")
    made.UnloadfrmMaster
    Set made = Nothing
  Next
  ManyTimes = "done"
End Function

Function CreateProject()
  Dim volume As Integer, last
  Set library = CreateObject("Pellora.cPellora")
  answer = library.CreateNewProject(0, 0, 0, 0, 0, 0, last, 0, 0, volume)
  CreateProject = answer & " " & TypeName(last) & last & " " & volume
End Function

Function OwnApplication()
  Set library = CreateObject("Pellora.cPellora")
  Set library.ExcelApplication = Application
  back = EqualUnoObjects(library.ExcelApplication, Application)
  back = back And EqualUnoObjects(library.m_ObjExcelApplication, Application)
  Set library.ExcelApplication = Nothing
  OwnApplication = CStr(back And IsNull(library.ExcelApplication))
End Function

Function OtherApplication()
  Set globals = CreateUnoServiceWithArguments("ooo.vba.excel.Globals", Array(ThisComponent))
  Set library = CreateObject("Pellora.cPellora")
  Set library.ExcelApplication = globals.Excel
  back = EqualUnoObjects(library.ExcelApplication, globals.Excel)
  back = back And EqualUnoObjects(library.m_ObjExcelApplication, globals.Excel)
  Set library.ExcelApplication = Nothing
  OtherApplication = CStr(back And IsNull(library.ExcelApplication))
End Function

Function Failing()
  Set library = CreateObject("Pellora.cPellora")
  library.ExcelApplication = 5
End Function
"""


def handled(macros):
    """The macros, each of which answers "number text" when it fails."""
    name, lines = "", []
    for line in macros.splitlines():
        if line.startswith("End Function"):
            lines += ["  Exit Function", f"Failed: {name} = Err & \" \" & Error$"]
        lines.append(line)
        if line.startswith("Function "):
            name = line.split()[1].partition("(")[0]
            lines.append("  On Error Goto Failed")
    return "\n".join(lines)


def check(name, body):
    """One test: fails by an exception, or by an answer that is not the expected one."""
    try:
        found, wanted = body()
        holds, note = found == wanted, f"({found!r} for {wanted!r})"
    except Exception as error:  # noqa: BLE001 - whatever it is, the next test runs
        holds, note = False, f"({type(error).__name__}: {' '.join(str(error).split())[:300]})"
    print(f"ok {name}" if holds else f"not ok {name} {note}", flush=True)


def value(name, content):
    return PropertyValue(Name=name, Value=content)


class Program:
    def __init__(self, pipe, pid):
        self.pipe, self.pid = pipe, pid
        self.context = office(pipe)
        self.desktop = self.service("com.sun.star.frame.Desktop")

    def service(self, name):
        return self.context.ServiceManager.createInstanceWithContext(name, self.context)

    def document(self):
        arguments = (value("Hidden", True), value("MacroExecutionMode", 4))
        return Macros(self.desktop.loadComponentFromURL("private:factory/scalc", "_blank", 0, arguments))

    def process(self):
        """The program itself: the child of the script, and of the program that shows the first picture."""
        pid = self.pid
        while True:
            children = Path(f"/proc/{pid}/task/{pid}/children").read_text().split()
            if not children:
                return pid
            pid = children[0]

    def memory(self):
        return int(Path(f"/proc/{self.process()}/statm").read_text().split()[1]) * 4096

    def handles(self):
        return len(list(Path(f"/proc/{self.process()}/fd").iterdir()))

    def answers(self):
        return self.desktop.getComponents().createEnumeration().hasMoreElements() in (True, False)


class Macros:
    """The macros in a document, or in the user's own library, in both dialects of Basic."""

    def __init__(self, document):
        self.document = document
        libraries = document.BasicLibraries
        if not libraries.hasByName("Standard"):
            libraries.createLibrary("Standard")
        library = libraries.getByName("Standard")
        library.insertByName("Plain", handled(MACROS))
        library.insertByName("Vba", "Option VBASupport 1\n" + handled(MACROS).replace("Err &", "Err.Number &"))

    def run(self, name, *arguments):
        address = f"vnd.sun.star.script:Standard.{name}?language=Basic&location=document"
        return self.document.getScriptProvider().getScript(address).invoke(arguments, (), ())[0]

    def close(self):
        self.document.close(True)


def test_making(macros):
    for dialect in ("Plain", "Vba"):
        def run(name, *arguments):
            return macros.run(f"{dialect}.{name}", *arguments)
        check(f"{dialect}: CreateObject makes an object", lambda: (run("CreateObjectAnswers", "Pellora.cPellora"), "made"))
        check(f"{dialect}: names count in any letter case",
              lambda: (run("CreateObjectAnswers", "PELLORA.CPELLORA"), "made"))
        check(f"{dialect}: an unknown class is 323", lambda: (run("CreateObjectAnswers", "Pellora.cOther")[:4], "323 "))
        check(f"{dialect}: another automation's class is 323", lambda: (run("CreateObjectAnswers", "Other.Class")[:4], "323 "))
        check(f"{dialect}: CreateUnoService makes an object", lambda: (run("ServiceAnswers", "Pellora.cPellora"), "made"))
        check(f"{dialect}: New makes an object", lambda: (run("NewAnswers"), "made"))
        check(f"{dialect}: a failure has its number", lambda: (run("Failing")[:3], "13 "))


def test_application(macros):
    check("a module's own application is taken and comes back", lambda: (macros.run("Vba.OwnApplication"), "True"))
    check("an application that was asked for is taken and comes back",
          lambda: (macros.run("Plain.OtherApplication"), "True"))


def test_other_processes(program):
    library = program.service("Pellora.cPellora")
    check("a caller in another process reads and calls",
          lambda: ((library.UnloadfrmMaster(), library.ErrNumber, library.ErrDescription), (None, 0, "")))

    def refused():
        try:
            library.ExcelApplication = "no application"
        except Exception:  # noqa: BLE001 - the number tells which
            return library.ErrNumber, 13
        return "nothing was raised", 13
    check("a caller in another process is refused as a macro is", refused)
    check("the program answers afterwards", lambda: (program.answers(), True))


def test_life(program):
    macros = program.document()
    check("an object is kept between macros", lambda: (macros.run("Vba.Keep"), "kept"))
    # Each of these calls may come in on another thread.
    check("an object is used from one macro after another",
          lambda: ([macros.run("Vba.UseKept") for _ in range(5)], ["used"] * 5))
    macros.run("Vba.ManyTimes", 20)
    handles, memory = program.handles(), program.memory()
    check("a hundred objects come and go", lambda: (macros.run("Vba.ManyTimes", 100), "done"))
    check("they leave no handles", lambda: (program.handles() <= handles, True))
    grown = program.memory() - memory
    check("they leave less than 100 KB", lambda: ((grown < 100_000) or grown, True))
    macros.close()
    check("the program answers after the document of a living object was closed", lambda: (program.answers(), True))


def test_dialog(program):
    """One dialog, opened by a macro on a thread of its own and used by the names of its controls."""
    macros = program.document()

    def during(use):
        outcome = []
        caller = threading.Thread(target=lambda: outcome.append(macros.run("Vba.CreateProject")), daemon=True)
        caller.start()
        try:
            use()
        finally:
            caller.join(20)
        return outcome

    def confirm():
        press(control(program, "Check all"))
        press(control(program, "Create project"))

    def refuse_to_end():
        control(program, "Cancel")
        check("the program does not end while a dialog is open", lambda: (program.desktop.terminate(), False))
        press(control(program, "Cancel"))
    check("a confirmed dialog writes the variables", lambda: (during(confirm), ["True Integer1 1"]))
    check("a cancelled dialog leaves them alone", lambda: (during(refuse_to_end), ["False Empty 0"]))
    macros.close()


def control(program, name, seconds=15):
    """The control of a dialog, once there is one."""
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        toolkit = program.service("com.sun.star.awt.Toolkit")
        for index in range(toolkit.getTopWindowCount()):
            window = toolkit.getTopWindow(index).getAccessibleContext()
            if window.getAccessibleRole() != DIALOG:
                continue
            for place in range(window.getAccessibleChildCount()):
                child = window.getAccessibleChild(place).getAccessibleContext()
                if child.getAccessibleName() == name:
                    return child
        time.sleep(0.05)
    raise TimeoutError(f"no dialog has {name}")


def press(button):
    button.doAccessibleAction(0)


def test_removal(program):
    macros = program.document()
    macros.run("Vba.Keep")
    manager = program.context.getValueByName("/singletons/com.sun.star.deployment.ExtensionManager")
    manager.removeExtension("pellora.extension", "pellora.oxt", "user", manager.createAbortChannel(), Quiet())
    check("an object works on after its extension was removed", lambda: (macros.run("Vba.UseKept"), "used"))
    check("the program answers after the extension was removed", lambda: (program.answers(), True))


def main(pipe, pid):
    program = Program(pipe, int(pid))
    macros = program.document()
    test_making(macros)
    test_application(macros)
    macros.close()
    test_other_processes(program)
    test_life(program)
    test_dialog(program)
    test_removal(program)
    # The object that the last document keeps lives on.
    check("the program agrees to end", lambda: (program.desktop.terminate(), True))


if __name__ == "__main__":
    main(*sys.argv[1:])

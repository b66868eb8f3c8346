"""The office program in the hands of a test: its documents, its macros on the main thread, the dialogs they bring up."""

import json
import shutil
import sys
import time
from pathlib import Path

root = Path(__file__).resolve().parents[3]
sys.path += [str(root / one) for one in ("script/lib", "tests/libreoffice", "tests/libreoffice/component")]

import uno  # noqa: E402, F401, it lets the next lines find the program's types
from com.sun.star.beans import NamedValue, PropertyValue  # noqa: E402
from com.sun.star.uno import RuntimeException  # noqa: E402
from installed import handled  # noqa: E402
from office_tests import office  # noqa: E402

MACROS = """
Global made As Object
Global other As Object

Function ApplicationOf(book)
  Set ApplicationOf = CreateUnoServiceWithArguments("ooo.vba.excel.Globals", Array(book)).Excel
End Function

Function Take(book)
  Set made = CreateObject("Pellora.cPellora")
  Set made.ExcelApplication = ApplicationOf(book)
  Take = "taken"
End Function

Function Hand(book)
  Set made.ExcelApplication = ApplicationOf(book)
  Hand = "handed"
End Function

Function Tape()
  Tape = made.ShowRefEditInterface()
End Function

Function Project()
  Dim volume As Integer
  Project = made.CreateNewProject(0, 0, 0, 0, 0, 0, 0, 0, 0, volume) & " " & volume
End Function

Function Symbol()
  Dim text As String, index As Integer
  Symbol = made.AddNewSymbol(text, "", "", 0, "", 0, "", "", "", index) & " " & text
End Function

Function Place(text)
  made.RefEditInputs = text
  Place = made.RefEditInputs
End Function

Function TapeAndClose(book)
  TapeAndClose = made.ShowRefEditInterface()
  book.close(True)
End Function

Function Unload()
  made.UnloadfrmMaster
  Unload = "unloaded"
End Function

Function Wrong()
  Dim things(12), i, text As String
  things(0) = Empty : things(1) = Null : Set things(2) = Nothing : things(3) = "text" : things(4) = 1E+300
  things(5) = -1 : things(6) = Array(1, 2) : Set things(7) = made : things(8) = True : things(9) = #1/1/2020#
  Set things(10) = CreateUnoService("com.sun.star.util.PathSettings") : things(11) = String(70000, "x") : things(12) = 99999
  For i = 0 To 12
    Wrong = Wrong & Try(0, things(i)) & Try(1, things(i)) & Try(2, things(i)) & Try(3, things(i)) & Try(4, things(i)) & Try(5, things(i)) & " "
  Next
End Function

Function Try(way, thing)
  Dim x As Object
  Try = "-"
  Select Case way
  Case 0: Set made.ExcelApplication = thing
  Case 1: made.m_ObjExcelApplication = thing
  Case 2: made.CreateNewProject thing
  Case 3: made.AddNewSymbol thing, thing, thing, thing, thing, thing, thing, thing, thing, thing, thing
  Case 4: made.AddNewSymbol "", "", "", 0, "", 0, "", "", "", thing, thing
  Case 5: made.UnloadfrmMaster thing
  End Select
  Try = "+"
End Function

Function Drop()
  Set made = Nothing
  Drop = "dropped"
End Function
"""


def value(name, content):
    return PropertyValue(Name=name, Value=content)


class Desk:
    def __init__(self, pipe, pid, folder):
        self.pid, self.folder = int(pid), Path(folder)
        self.pipe = pipe
        self.context = office(pipe)
        self.desktop = self.create("com.sun.star.frame.Desktop")
        loader = self.create("com.sun.star.loader.Python")
        factory = loader.activate("pellora.test.Hands", "", (Path(__file__).parent / "hands.py").as_uri(), None)
        self.hands = factory.createInstanceWithContext(self.context)
        libraries = self.create("com.sun.star.script.ApplicationScriptLibraryContainer")
        if not libraries.hasByName("Bad"):
            libraries.createLibrary("Bad")
        self.add_macros(libraries.getByName("Bad"), "Macros", MACROS)
        factory = self.context.getValueByName("/singletons/com.sun.star.script.provider.theMasterScriptProviderFactory")
        self.provider = factory.createScriptProvider("user")
        self.count = 0

    def create(self, service):
        return self.context.ServiceManager.createInstanceWithContext(service, self.context)

    def open(self, sample="quotes.xlsx", **properties):
        self.count += 1
        copy = self.folder / f"{self.count}-{sample}"
        shutil.copyfile(root / "samples" / sample, copy)
        arguments = [value("MacroExecutionMode", 4), *(value(name, content) for name, content in properties.items())]
        return self.desktop.loadComponentFromURL(copy.as_uri(), "_blank", 0, tuple(arguments))

    def is_open(self, book):
        documents = self.desktop.getComponents().createEnumeration()
        while documents.hasMoreElements():
            if documents.nextElement() == book:
                return True
        return False

    def closed(self, book):
        """True once the document is gone."""
        return self.until("the document's end", lambda: not self.is_open(book))

    def hand(self, *words):
        return self.hands.execute(tuple(NamedValue("argument", word) for word in words))

    # Macros

    @staticmethod
    def add_macros(library, module, macros):
        """Puts a module into a library; its functions answer their failures."""
        if not library.hasByName(module):
            library.insertByName(module, "Option VBASupport 1\n" + handled(macros).replace("Err &", "Err.Number &"))

    def script(self, name, document=None):
        where = "document" if document else "application"
        provider = document.getScriptProvider() if document else self.provider
        library = "Standard" if document else "Bad"
        return provider.getScript(f"vnd.sun.star.script:{library}.Macros.{name}?language=Basic&location={where}")

    def start(self, name, *arguments, document=None):
        return self.hand("start", self.script(name, document), tuple(arguments))

    def run(self, name, *arguments, document=None):
        return self.end(self.start(name, *arguments, document=document), name)

    def end(self, number, name="the macro", seconds=10):
        return json.loads(self.until(f"the end of {name}", lambda: self.hand("outcome", number), seconds))

    # Dialogs

    def windows(self):
        return json.loads(self.hand("windows"))

    def wait(self, title):
        """The dialog, in front."""
        def shown():
            windows = self.windows()
            return next((one for one in windows if one[0] == title), None)
        return self.until(f"the dialog {title}", shown)

    def press(self, title, caption):
        self.wait(title)
        self.until(f"{caption} in {title}", lambda: self.pressed(title, caption))

    def pressed(self, title, caption):
        """False when the window, or what stands in it, has not come to its full life yet."""
        try:
            self.hand("press", title, caption)
        except RuntimeException as failure:
            if "StopIteration" not in failure.Message:
                raise
            return False
        return True

    def answer(self, macro, *steps):
        """Runs a macro whose dialogs are answered by pairs of title and button; answers what it ends with and what the
        dialogs said."""
        number, said = self.start(macro), []
        for title, button in steps:
            said.append(" ".join(self.wait(title)[1]))
            self.press(title, button)
            if title in ("Error", "Vantix"):
                self.gone(title)
        return self.end(number, macro), said

    def ignore(self, number):
        """Answers the error dialogs of a call with Ignore until the call has ended; how many there were."""
        count = 0
        while not self.hand("outcome", number) and count < 200:
            windows = self.windows()
            if windows and windows[-1][0] == "Error" and self.pressed("Error", "Ignore"):
                count += 1
            time.sleep(0.01)
        return count

    def gone(self, title):
        self.until(f"the end of {title}", lambda: all(one[0] != title for one in self.windows()))

    def places(self, texts):
        """What the tape dialog says to each text as a place; "" where it made a tape."""
        return json.loads(self.hand("insert", tuple(texts)))

    def until(self, what, condition, seconds=10):
        end = time.monotonic() + seconds
        while True:
            found = condition()
            if found:
                return found
            if time.monotonic() > end:
                raise TimeoutError(f"waited for {what}; there is {self.windows()}")
            time.sleep(0.02)

    def clear(self):
        """Ends what a part that broke off left open."""
        end = time.monotonic() + 5
        while self.windows() and time.monotonic() < end:
            title, _, buttons = self.windows()[-1]
            self.pressed(title, next((one for one in ("Abort", "Cancel", "OK") if one in buttons), "OK"))
            time.sleep(0.1)

    def alive(self):
        return self.desktop.getComponents() is not None

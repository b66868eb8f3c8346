#!/usr/bin/python3
"""Makes the sample workbooks with macros in a running office program: office_samples.py PIPE MODULE FOLDER

Puts the module into quotes.xlsx of the folder and writes Pellora.ods and Pellora.xlsm beside it. Neither says
when it was made; made anew of the same, only the random numbers in the second one's project of macros differ.
"""

import re
import sys
import zipfile
from pathlib import Path

import uno
from com.sun.star.awt import Point, Size
from com.sun.star.script import ModuleInfo, ScriptEventDescriptor
from com.sun.star.script.ModuleType import DOCUMENT, NORMAL
from macros_extension import COMMANDS, MODULE, address, module_text
from office_tests import office

# The library of Excel's own name: so the macros have the same full names in both files.
LIBRARY = "VBAProject"
VBA = "Option VBASupport 1\n"

RELEASE = f"""Private Sub Workbook_BeforeClose(Cancel As Boolean)
    {MODULE}.ReleasePellora
End Sub
"""

SHEET = "Desk"
# In hundredths of a millimetre.
ROW_HEIGHT, BUTTON, GAP, LEFT, TOP = 1000, Size(3600, 800), 200, 300, 100


def put_modules(document, text):
    """The macros, and what a workbook for Excel has besides: a module for itself and one for each sheet."""
    libraries = document.BasicLibraries
    libraries.VBACompatibilityMode = True
    libraries.ProjectName = LIBRARY
    library = libraries.createLibrary(LIBRARY)
    sheets = [f"Sheet{number + 1}" for number in range(document.Sheets.Count)]
    for name, kind, content in (
        [("ThisWorkbook", DOCUMENT, VBA + RELEASE)]
        + [(name, DOCUMENT, VBA) for name in sheets]
        + [(MODULE, NORMAL, text)]
    ):
        library.insertModuleInfo(name, ModuleInfo(None, kind))
        library.insertByName(name, content)


def put_buttons(document):
    sheet = document.Sheets.getByName(SHEET)
    sheet.Rows.getByIndex(0).Height = ROW_HEIGHT
    page = sheet.DrawPage
    form = document.createInstance("com.sun.star.form.component.Form")
    form.Name = "Pellora"
    page.Forms.insertByIndex(0, form)
    for number, (label, macro) in enumerate(COMMANDS):
        button = document.createInstance("com.sun.star.form.component.CommandButton")
        button.Name, button.Label, button.FocusOnClick = macro, label, False
        shape = document.createInstance("com.sun.star.drawing.ControlShape")
        shape.setSize(BUTTON)
        shape.setPosition(Point(LEFT + number * (BUTTON.Width + GAP), TOP))
        shape.setControl(button)
        form.insertByIndex(number, button)
        page.add(shape)
        script = address(LIBRARY, macro, "document")
        form.registerScriptEvent(number, ScriptEventDescriptor("XActionListener", "actionPerformed", "", "Script", script))


def value(name, content):
    return uno.createUnoStruct("com.sun.star.beans.PropertyValue", Name=name, Value=content)


# When and how long the file was worked on, in either format.
MOMENTS = re.compile(
    rb"<dc:date>.*?</dc:date>|<meta:editing-duration>.*?</meta:editing-duration>"
    rb"|<dcterms:(created|modified)\b[^>]*>.*?</dcterms:\1>"
)


def without_moments(path):
    with zipfile.ZipFile(path) as file:
        parts = [(entry.filename, entry.compress_type, file.read(entry)) for entry in file.infolist()]
    with zipfile.ZipFile(path, "w") as file:
        for name, compression, content in parts:
            if name in ("meta.xml", "docProps/core.xml"):
                content = MOMENTS.sub(b"", content)
            file.writestr(zipfile.ZipInfo(name, (1980, 1, 1, 0, 0, 0)), content, compression)


def main(pipe, module, folder):
    folder = Path(folder).resolve()
    context = office(pipe)
    desktop = context.ServiceManager.createInstanceWithContext("com.sun.star.frame.Desktop", context)
    document = desktop.loadComponentFromURL((folder / "quotes.xlsx").as_uri(), "_blank", 0, ())
    put_modules(document, module_text(module))
    put_buttons(document)
    document.CurrentController.ActiveSheet = document.Sheets.getByName(SHEET)
    for name, format in (("Pellora.ods", "calc8"), ("Pellora.xlsm", "Calc MS Excel 2007 VBA XML")):
        document.storeToURL((folder / name).as_uri(), (value("FilterName", format),))
        without_moments(folder / name)
    document.close(True)


if __name__ == "__main__":
    main(*sys.argv[1:])

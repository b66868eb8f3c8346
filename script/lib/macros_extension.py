"""Makes the extension that brings the macros to every workbook: macros_extension.py MODULE EXTENSION

The module becomes a library of the program, and a menu "Pellora" of the spreadsheet window starts its macros. For
workbooks without macros of their own, and for files of Excel, whose buttons LibreOffice does not show. The file's bytes
depend on the module only.
"""

import html
import sys
import zipfile
from pathlib import Path

LIBRARY, MODULE = "PelloraMacros", "PelloraDialogs"

# What the menu and the workbooks' buttons say, and the macro that each starts.
COMMANDS = [
    ("Choose fields...", "ChooseQuoteFields"),
    ("Add instruments...", "AddInstruments"),
    ("Set up tapes...", "SetUpTapes"),
    ("Let the library go", "ReleasePellora"),
]

MANIFEST = f"""<?xml version="1.0" encoding="UTF-8"?>
<manifest:manifest xmlns:manifest="http://openoffice.org/2001/manifest">
  <manifest:file-entry manifest:full-path="{LIBRARY}/" manifest:media-type="application/vnd.sun.star.basic-library"/>
  <manifest:file-entry manifest:full-path="Addons.xcu" manifest:media-type="application/vnd.sun.star.configuration-data"/>
</manifest:manifest>
"""

DESCRIPTION = """<?xml version="1.0" encoding="UTF-8"?>
<description xmlns="http://openoffice.org/extensions/description/2006">
  <identifier value="pellora.macros"/>
  <version value="1.0"/>
  <display-name><name lang="en">Pellora's macros</name></display-name>
</description>
"""

LIBRARY_INDEX = """<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE library:library PUBLIC "-//OpenOffice.org//DTD OfficeDocument 1.0//EN" "library.dtd">
<library:library xmlns:library="http://openoffice.org/2000/library" library:name="{library}" library:readonly="false"
 library:passwordprotected="false">{elements}</library:library>
"""

SCRIPT = """<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE script:module PUBLIC "-//OpenOffice.org//DTD OfficeDocument 1.0//EN" "module.dtd">
<script:module xmlns:script="http://openoffice.org/2000/script" script:name="{name}" script:language="StarBasic">{text}
</script:module>
"""

MENU = """<?xml version="1.0" encoding="UTF-8"?>
<oor:component-data xmlns:oor="http://openoffice.org/2001/registry" xmlns:xs="http://www.w3.org/2001/XMLSchema"
  oor:name="Addons" oor:package="org.openoffice.Office">
  <node oor:name="AddonUI"><node oor:name="OfficeMenuBar"><node oor:name="pellora.macros" oor:op="replace">
    <prop oor:name="Title"><value xml:lang="en-US">~Pellora</value></prop>
    <prop oor:name="Context" oor:type="xs:string"><value>com.sun.star.sheet.SpreadsheetDocument</value></prop>
    <node oor:name="Submenu">{entries}
    </node>
  </node></node></node>
</oor:component-data>
"""

ENTRY = """
      <node oor:name="{number}" oor:op="replace">
        <prop oor:name="Title"><value xml:lang="en-US">{title}</value></prop>
        <prop oor:name="URL" oor:type="xs:string"><value>{address}</value></prop>
        <prop oor:name="Target" oor:type="xs:string"><value>_self</value></prop>
      </node>"""


def module_text(path):
    """The module as LibreOffice keeps it: in its mode for Excel's language, and its name is not among the lines."""
    lines = Path(path).read_text(encoding="ascii").splitlines(keepends=True)
    return "Option VBASupport 1\n" + "".join(line for line in lines if not line.startswith("Attribute VB_Name"))


def address(library, macro, place):
    return f"vnd.sun.star.script:{library}.{MODULE}.{macro}?language=Basic&location={place}"


def parts(module):
    entries = [
        ENTRY.format(number=number, title=title, address=html.escape(address(LIBRARY, macro, "application")))
        for number, (title, macro) in enumerate(COMMANDS)
    ]
    element = f'<library:element library:name="{MODULE}"/>'
    return {
        "META-INF/manifest.xml": MANIFEST,
        "description.xml": DESCRIPTION,
        "Addons.xcu": MENU.format(entries="".join(entries)),
        f"{LIBRARY}/script.xlb": LIBRARY_INDEX.format(library=LIBRARY, elements=element),
        f"{LIBRARY}/dialog.xlb": LIBRARY_INDEX.format(library=LIBRARY, elements=""),
        f"{LIBRARY}/{MODULE}.xba": SCRIPT.format(name=MODULE, text=html.escape(module_text(module))),
    }


def main(module, extension):
    with zipfile.ZipFile(extension, "w", zipfile.ZIP_DEFLATED) as made:
        for name, text in parts(module).items():
            made.writestr(zipfile.ZipInfo(name, (1980, 1, 1, 0, 0, 0)), text, zipfile.ZIP_DEFLATED)


if __name__ == "__main__":
    main(*sys.argv[1:])

"""Looks at the windows of the office program from inside it, for the player outside: a component of the program, as a
look from outside would be thousands of calls. Commands, as arguments of `execute`; each answers JSON:

    windows          the windows shown, each with its controls if it is a dialog: rows of the fields of player.Window
    table HANDLE     the rows of a grid, each with its mark "*" or " "; the header line is the first one. What their
                     cells show the program does not tell
    items HANDLE     the entries of a list
    cell HANDLE ROW  where the first cell of a grid's row is on the screen
    sheet COLUMN ROW the middle of a cell of the sheet that is shown, counted from 0
    menu NAME [ENTRY]  the middle of a menu in the bar of the workbook's window, or of an entry of it when it is open
"""

import json
import os
import sys

import unohelper  # it also lets the next lines find the types of the program
from com.sun.star.accessibility import AccessibleRole as Role
from com.sun.star.accessibility import AccessibleStateType as State
from com.sun.star.task import XJob
from com.sun.star.uno import Exception as UnoException
from com.sun.star.uno import RuntimeException

# The program knows the place of its components, and not that of what they import.
sys.path.append(os.path.dirname(__file__))
from main_thread import Task  # noqa: E402

# The other probe's names of what windows hold, and the style that tells its buttons apart.
KINDS = {
    Role.PUSH_BUTTON: ("Button", 0),
    Role.CHECK_BOX: ("Button", 3),
    Role.RADIO_BUTTON: ("Button", 9),
    Role.TEXT: ("Edit", 0),
    Role.COMBO_BOX: ("ComboBox", 0),
    Role.LIST: ("ListBox", 0),
    Role.LABEL: ("Static", 0),
    Role.STATIC: ("Static", 0),
    Role.TABLE: ("SysListView32", 0),
}
DIALOGS = (Role.DIALOG, Role.ALERT, Role.OPTION_PANE)
FLAGS = (("v", State.SHOWING), ("e", State.ENABLED), ("f", State.FOCUSED), ("a", State.ACTIVE))
# What is below these is read on demand only.
CLOSED = ("Button", "ListBox", "SysListView32", "SysHeader32", "Static")
# The program's own name of the header line above a grid, a table of its own.
HEADER_LINE = "ColumnHeaderBar"
# How long, in seconds, the main thread may be busy with what it does for the user.
PATIENCE = 1.5


class Probe(unohelper.Base, XJob):
    def __init__(self, context):
        self.main_thread = context.ServiceManager.createInstanceWithContext("com.sun.star.awt.AsyncCallback", context)
        self.toolkit = context.ServiceManager.createInstanceWithContext("com.sun.star.awt.Toolkit", context)
        self.desktop = context.ServiceManager.createInstanceWithContext("com.sun.star.frame.Desktop", context)
        self.tops = []

    def execute(self, arguments):
        command, *words = (argument.Value for argument in arguments)
        look = Task(lambda: getattr(self, command)(*words))
        self.main_thread.addCallback(look, None)
        # A macro that waits lets nothing else run there; then nothing is being destroyed either.
        if not look.done.wait(PATIENCE):
            look.take()
        look.done.wait()
        if isinstance(look.answer, Exception):
            raise RuntimeException(f"{command} {words}: {look.answer!r}", self)
        return json.dumps(look.answer)

    def windows(self):
        found = []
        for index in range(self.toolkit.getTopWindowCount()):
            try:
                found.append(self._top(self.toolkit.getTopWindow(index)))
            except (UnoException, AttributeError):
                # Gone while it was looked at.
                continue
        # A window that has been closed may stay in the list, hidden.
        return [window for window in found if "v" in window[0][8]]

    def table(self, handle):
        table = self._at(handle)
        rows = range(table.getAccessibleRowCount())
        return [[" "], *(["*" if table.isAccessibleRowSelected(row) else " "] for row in rows)]

    def items(self, handle):
        entries = self._at(handle)
        return [self._child(entries, index).getAccessibleName() for index in range(entries.getAccessibleChildCount())]

    def cell(self, handle, row):
        place = self._cell(self._at(handle), int(row), 0).getLocationOnScreen()
        return [place.X, place.Y]

    def sheet(self, column, row):
        window = self.desktop.CurrentComponent.CurrentController.Frame.ComponentWindow
        cells = self._find(window.getAccessibleContext(), lambda one: one.getAccessibleRole() == Role.TABLE)
        return self._middle(cells.getAccessibleCellAt(int(row), int(column)).getAccessibleContext())

    def menu(self, *names):
        window = self.desktop.CurrentComponent.CurrentController.Frame.ContainerWindow
        found = self._find(window.getAccessibleContext(), lambda one: one.getAccessibleRole() == Role.MENU_BAR)
        for name in names:
            below = (self._child(found, index) for index in range(found.getAccessibleChildCount()))
            found = next(one for one in below if one.getAccessibleName() == name)
        return self._middle(found)

    def _find(self, accessible, wanted):
        """The first one that is wanted, depth first; tables have too many cells to look into, and tool bars none."""
        if wanted(accessible):
            return accessible
        if accessible.getAccessibleRole() in (Role.TABLE, Role.TOOL_BAR):
            return None
        below = (self._child(accessible, index) for index in range(accessible.getAccessibleChildCount()))
        return next(filter(None, (self._find(child, wanted) for child in below)), None)

    @staticmethod
    def _middle(accessible):
        place, size = accessible.getLocationOnScreen(), accessible.getSize()
        return [place.X + size.Width // 2, place.Y + size.Height // 2] if size.Width else None

    def _at(self, handle):
        """The object of a handle, found anew: none is kept longer than a look takes, nor than its window."""
        top, *path = map(int, handle.split("."))
        accessible = self.tops[top].getAccessibleContext()
        for index in path:
            accessible = self._child(accessible, index)
        return accessible

    def _top(self, window):
        known = next((number for number, top in enumerate(self.tops) if top == window), len(self.tops))
        if known == len(self.tops):
            self.tops.append(window)
        accessible = window.getAccessibleContext()
        rows = [self._row(accessible, 0, str(known))]
        if accessible.getAccessibleRole() in DIALOGS:
            self._descend(rows, accessible, 1, str(known))
        return rows

    def _descend(self, rows, parent, depth, path):
        for index in range(parent.getAccessibleChildCount()):
            child = self._child(parent, index)
            row = self._row(child, depth, f"{path}.{index}")
            rows.append(row)
            if row[3] not in CLOSED:
                self._descend(rows, child, depth + 1, f"{path}.{index}")

    def _row(self, accessible, depth, handle):
        role = accessible.getAccessibleRole()
        kind, style = KINDS.get(role, (f"role {role}", 0))
        if kind == "SysListView32" and accessible.getAccessibleName() == HEADER_LINE:
            kind = "SysHeader32"
        states = accessible.getAccessibleStateSet()
        flags = "".join(letter for letter, state in FLAGS if states.contains(state))
        place, size = accessible.getLocationOnScreen(), accessible.getSize()
        area = [place.X, place.Y, place.X + size.Width, place.Y + size.Height]
        value = "1" if states.contains(State.CHECKED) else "0"
        return [depth, handle, 0, kind, *area, flags, style, value, self._text(accessible, kind)]

    def _text(self, accessible, kind):
        if kind == "ComboBox":
            for index in range(accessible.getAccessibleChildCount()):
                child = self._child(accessible, index)
                if child.getAccessibleRole() == Role.TEXT:
                    return child.getText()
        if kind == "Edit":
            return accessible.getText()
        # What a button shows: its name may say more. A caption is read as one with the marks of access keys.
        shown = accessible.getText() if kind in ("Button", "Static") else accessible.getAccessibleName()
        return shown.replace("&", "&&")

    @staticmethod
    def _child(parent, index):
        return parent.getAccessibleChild(index).getAccessibleContext()

    @staticmethod
    def _cell(table, row, column):
        cell = table.getAccessibleCellAt(row, column)
        # The grid's cells are their own contexts and do not say so.
        return cell.getAccessibleContext() if hasattr(cell, "getAccessibleContext") else cell


g_ImplementationHelper = unohelper.ImplementationHelper()
g_ImplementationHelper.addImplementation(Probe, "pellora.test.Probe", ("pellora.test.Probe",))

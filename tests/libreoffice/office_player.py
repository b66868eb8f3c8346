"""Plays a person at the dialogs of the office program: the keys, clicks and pictures of the other player, with a look at
the windows through the program's own accessible objects instead of a probe.

    with OfficePlayer(pipe) as player:
        dialog = player.wait("Ticker tape")
"""

import pathlib
import subprocess
import sys

import uno
from com.sun.star.accessibility import AccessibleRole as Role
from com.sun.star.accessibility import AccessibleStateType as State
from com.sun.star.uno import Exception as UnoException

_ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path += [str(_ROOT / "tests" / "windows"), str(_ROOT / "script" / "lib")]
from office_tests import office  # noqa: E402
from player import Player, PlayError, Window  # noqa: E402, F401

# The other player's names of what the windows hold, and the style that tells its buttons apart.
_KINDS = {
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
_DIALOGS = (Role.DIALOG, Role.ALERT, Role.OPTION_PANE)
# What is below these is read on demand only.
_CLOSED = ("Button", "ListBox", "SysListView32", "Static")


class OfficePlayer(Player):
    def __init__(self, pipe, patience=20, log=None):
        self.patience = patience
        self.expects_errors = False
        self._log = log
        self.context = office(pipe)
        self._toolkit = self.create("com.sun.star.awt.Toolkit")
        self._tops = []
        self._objects = {}

    def __exit__(self, *_):
        self._tops.clear()
        self._objects.clear()

    def create(self, service):
        return self.context.ServiceManager.createInstanceWithContext(service, self.context)

    # Looking

    def _windows(self):
        self._objects = {}
        windows = []
        for index in range(self._toolkit.getTopWindowCount()):
            try:
                window = self._toolkit.getTopWindow(index)
                windows.append(self._top(window))
            except (UnoException, AttributeError):
                # Gone while it was looked at.
                continue
        return [window for window in windows if window]

    def _top(self, window):
        known = next((n for n, top in enumerate(self._tops) if top == window), None)
        if known is None:
            known = len(self._tops)
            self._tops.append(window)
        accessible = window.getAccessibleContext()
        top = self._control(accessible, 0, (known,))
        if top and accessible.getAccessibleRole() in _DIALOGS:
            self._descend(top, accessible, 1, (known,))
        return top

    def _descend(self, top, parent, depth, path):
        for index in range(min(parent.getAccessibleChildCount(), 200)):
            child = parent.getAccessibleChild(index).getAccessibleContext()
            control = self._control(child, depth, (*path, index))
            if control:
                top.children.append(control)
            if not control or control.kind not in _CLOSED:
                self._descend(top, child, depth + 1, (*path, index))

    def _control(self, accessible, depth, path):
        role = accessible.getAccessibleRole()
        kind, style = _KINDS.get(role, (f"role {role}", 0))
        states = accessible.getAccessibleStateSet()
        flags = "".join(
            letter
            for letter, state in (("v", State.SHOWING), ("e", State.ENABLED), ("f", State.FOCUSED), ("a", State.ACTIVE))
            if states.contains(state)
        )
        place, size = accessible.getLocationOnScreen(), accessible.getSize()
        area = (place.X, place.Y, place.X + size.Width, place.Y + size.Height)
        value = "1" if states.contains(State.CHECKED) else "0"
        self._objects[path] = accessible
        text = self._text(accessible, kind)
        return Window(depth, path, 0, kind, 0, *area, flags, style, value, text)

    @staticmethod
    def _text(accessible, kind):
        if kind == "Edit":
            return accessible.getText()
        if kind == "ComboBox":
            for index in range(accessible.getAccessibleChildCount()):
                child = accessible.getAccessibleChild(index).getAccessibleContext()
                if child.getAccessibleRole() == Role.TEXT:
                    return child.getText()
            return getattr(accessible, "getText", accessible.getAccessibleName)()
        return accessible.getAccessibleName()

    def _rows(self, grid):
        table = self._objects[grid.handle]
        columns = range(table.getAccessibleColumnCount())
        headers = table.getAccessibleColumnHeaders()
        rows = [[" ", *(self._cell(headers, 0, column) for column in columns)]]
        for row in range(table.getAccessibleRowCount()):
            mark = "*" if table.isAccessibleRowSelected(row) else " "
            rows.append([mark, *(self._cell(table, row, column) for column in columns)])
        return rows

    @staticmethod
    def _cell(table, row, column):
        cell = table.getAccessibleCellAt(row, column).getAccessibleContext()
        return getattr(cell, "getText", cell.getAccessibleName)()

    def items(self, box):
        entries = self._objects[box.handle]
        return [
            entries.getAccessibleChild(index).getAccessibleContext().getAccessibleName()
            for index in range(entries.getAccessibleChildCount())
        ]

    def whole_picture(self, path):
        """Saves what the display shows."""
        self._xdotool("mousemove", 1, 1)
        width, height = subprocess.run(
            ["xdotool", "getdisplaygeometry"], check=True, stdout=subprocess.PIPE, text=True
        ).stdout.split()
        self._settled(f"{width}x{height}+0+0")
        subprocess.run(["import", "-window", "root", str(path)], check=True)

    # Doing

    def press(self, window, caption):
        """Presses a button with the mouse: what access key it has the program does not tell."""
        self.click(self.again(window).button(caption))

    def drag(self, start, end):
        """Drags the mouse from one place to another, on the way in small steps."""
        self._xdotool("mousemove", *start, "mousedown", 1)
        for part in range(1, 9):
            place = [a + (b - a) * part // 8 for a, b in zip(start, end)]
            self._xdotool("mousemove", *place, "sleep", 0.02)
        self._xdotool("mouseup", 1)


def main():
    """Shows what the player sees: a help when a play does not find something."""
    with OfficePlayer(sys.argv[1]) as player:
        for window in player.windows():
            print(window.text, "|", window.flags, "|", window.describe())


if __name__ == "__main__":
    main()

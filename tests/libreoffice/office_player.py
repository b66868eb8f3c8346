"""Plays a person at the dialogs of the office program: the keys, clicks and pictures of the other player, with a look at
the windows by a component in the program (probe.py) instead of a program of its own.

    with OfficePlayer(pipe) as player:
        dialog = player.wait("Ticker tape")
"""

import json
import pathlib
import subprocess
import sys

import uno  # noqa: F401, it lets the next line find the program's types
from com.sun.star.beans import NamedValue

_HERE = pathlib.Path(__file__).resolve().parent
sys.path += [str(_HERE.parent / "windows"), str(_HERE.parents[1] / "script" / "lib")]
from office_tests import office  # noqa: E402
from player import Player, PlayError, Window  # noqa: E402, F401


class OfficePlayer(Player):
    def __init__(self, pipe, patience=20, log=None):
        self.patience = patience
        self.expects_errors = False
        self._log = log
        self.context = office(pipe)
        loader = self.create("com.sun.star.loader.Python")
        factory = loader.activate("pellora.test.Probe", "", (_HERE / "probe.py").as_uri(), None)
        self._probe = factory.createInstanceWithContext(self.context)

    def __exit__(self, *_):
        self._probe = None

    def create(self, service):
        return self.context.ServiceManager.createInstanceWithContext(service, self.context)

    # Looking

    def ask(self, *words):
        return json.loads(self._probe.execute(tuple(NamedValue("argument", str(word)) for word in words)))

    def _windows(self):
        tops = []
        for rows in self.ask("windows"):
            top, *controls = (Window(*row[:4], 0, *row[4:]) for row in rows)
            top.children = controls
            tops.append(top)
        return tops

    def _rows(self, grid):
        return self.ask("table", grid.handle)

    def items(self, box):
        return self.ask("items", box.handle)

    def wait(self, title, seconds=None):
        """Waits for a window that is ready for input: it is placed and laid out only after it has come up."""
        return self.steady(super().wait(title, seconds))

    def whole_picture(self, path):
        """Saves what the display shows."""
        self._xdotool("mousemove", 1, 1)
        size = subprocess.run(["xdotool", "getdisplaygeometry"], check=True, stdout=subprocess.PIPE, text=True).stdout
        self._settled("x".join(size.split()) + "+0+0")
        subprocess.run(["import", "-window", "root", str(path)], check=True)

    # Doing

    def click(self, control, count=1):
        """Clicks the middle of a control; a box or option is as wide as its place, and takes clicks on its mark."""
        x, y = control.centre
        self.click_at(control.left + 8 if control.button_kind in ("check", "option") else x, y, count)

    def press(self, window, caption):
        """Presses a button with the mouse: what access key it has the program does not tell."""
        self.click(self.again(window).button(caption))

    def choose_row(self, window, grid, row, height=None):
        """Makes a row of a grid (from 1) the selected one by a click on it."""
        left, top = self.ask("cell", grid.handle, row - 1)
        self.click_at(left + 10, top + 8)
        self.until(f"row {row}", lambda: self.selected(grid) == [row])

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

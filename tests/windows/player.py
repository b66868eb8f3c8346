"""Plays a person at the dialogs: presses real keys and clicks with the real mouse of the display (xdotool), looks at
the windows through probe.exe, takes pictures (ImageMagick). Polls for what it expects; never waits blindly.

    with Player(probe="build/win64/.../probe.exe") as player:
        dialog = player.wait("Ticker tape")
        player.click(dialog.button("Insert >>"))
        player.answer("Vantix", "OK", picture="refused.png")
"""

import dataclasses
import os
import select
import subprocess
import sys
import time

_ESCAPES = {"\\": "\\", "t": "\t", "r": "\r", "n": "\n"}

# Window styles that tell kinds of buttons apart.
_BUTTON_KINDS = {0: "push", 1: "push", 2: "check", 3: "check", 4: "option", 7: "frame", 9: "option"}


# The caption of the dialog in which the library reports a failure.
_ERROR_DIALOG = "Error"


class PlayError(Exception):
    """What was expected did not come, or the library reported a failure."""


def plain(text):
    """A caption as a person reads it: without the marks of access keys."""
    return text.replace("&&", "\0").replace("&", "").replace("\0", "&")


def _unescape(text):
    parts = text.split("\\")
    result = parts[0]
    position = 1
    while position < len(parts):
        part = parts[position]
        if part == "" and position + 1 < len(parts):
            result += "\\" + parts[position + 1]
            position += 2
            continue
        result += _ESCAPES.get(part[:1], part[:1]) + part[1:]
        position += 1
    return result


@dataclasses.dataclass
class Window:
    """One window as it was when it was looked at; `children` are all below it, in z-order, parents first."""

    depth: int
    handle: int
    process: int
    kind: str
    id: int
    left: int
    top: int
    right: int
    bottom: int
    flags: str
    style: int
    value: str
    text: str
    children: list = dataclasses.field(default_factory=list)

    @property
    def caption(self):
        return plain(self.text)

    @property
    def visible(self):
        return "v" in self.flags

    @property
    def enabled(self):
        return "e" in self.flags

    @property
    def focused(self):
        return "f" in self.flags

    @property
    def active(self):
        return "a" in self.flags

    @property
    def checked(self):
        return self.value == "1"

    @property
    def button_kind(self):
        return _BUTTON_KINDS.get(self.style & 0xF, "push") if self.kind == "Button" else ""

    @property
    def centre(self):
        return (self.left + self.right) // 2, (self.top + self.bottom) // 2

    def all(self, kind, shown=True):
        """The controls of a window class, those a person sees unless told otherwise."""
        return [c for c in self.children if c.kind.lower() == kind.lower() and (c.visible or not shown)]

    def find(self, kind, caption):
        for control in self.all(kind):
            if control.caption == caption:
                return control
        raise PlayError(f"'{self.text}' shows no {kind} '{caption}': " + self.describe())

    def button(self, caption):
        """A push button, check box or option button by its caption."""
        return self.find("Button", caption)

    def box(self, index):
        """The text box of that number, from 0, in tab order; those inside combo boxes do not count."""
        combos = {c.handle for c in self.all("ComboBox")}
        boxes = []
        parents = [self]
        for control in self.children:
            del parents[control.depth :]
            if control.kind == "Edit" and control.visible and parents[-1].handle not in combos:
                boxes.append(control)
            parents.append(control)
        return boxes[index]

    def labelled(self, caption):
        """The box or list that follows the label with that caption in tab order."""
        controls = [c for c in self.children if c.visible]
        for position, control in enumerate(controls):
            if control.kind == "Static" and control.caption.rstrip(":") == caption:
                for follower in controls[position + 1 :]:
                    if follower.kind in ("Edit", "ComboBox", "ListBox", "SysListView32"):
                        return follower
        raise PlayError(f"'{self.text}' shows nothing labelled '{caption}': " + self.describe())

    def grid(self, index=0):
        return self.all("SysListView32")[index]

    @property
    def focus(self):
        return next((c for c in self.children if c.focused), None)

    @property
    def focus_handle(self):
        return self.focus.handle if self.focus else 0

    def same(self, control):
        """The control as it is in this look at its window."""
        return next(c for c in self.children if c.handle == control.handle)

    def has_focus(self, control):
        """True when the control has the focus, or the box inside it, as that of an editable combo box."""
        position = next(n for n, c in enumerate(self.children) if c.handle == control.handle)
        depth = self.children[position].depth
        if self.children[position].focused:
            return True
        for child in self.children[position + 1 :]:
            if child.depth <= depth:
                return False
            if child.focused:
                return True
        return False

    def describe(self):
        return "; ".join(f"{c.kind} '{c.caption}' {c.flags}" for c in self.children if c.visible)


class Probe:
    """The program that looks at the windows."""

    def __init__(self, program):
        self._process = subprocess.Popen(
            ["wine", str(program)], stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL
        )
        self._rest = b""

    def close(self):
        try:
            self._process.stdin.write(b"quit\n")
            self._process.stdin.close()
            self._process.wait(5)
        except (OSError, subprocess.TimeoutExpired):
            self._process.kill()

    def ask(self, command, seconds=20):
        self._process.stdin.write(command.encode() + b"\n")
        self._process.stdin.flush()
        lines = []
        end = time.monotonic() + seconds
        while True:
            line = self._line(end, command)
            if line == ".":
                return lines
            lines.append(line)

    def _line(self, end, command):
        while b"\n" not in self._rest:
            ready, _, _ = select.select([self._process.stdout], [], [], max(0, end - time.monotonic()))
            piece = os.read(self._process.stdout.fileno(), 65536) if ready else b""
            if not piece:
                raise PlayError(f"no answer to '{command}'")
            self._rest += piece
        line, self._rest = self._rest.split(b"\n", 1)
        return line.rstrip(b"\r").decode()


class Player:
    def __init__(self, probe, patience=20, log=None):
        self.patience = patience
        self.expects_errors = False
        self._probe = Probe(probe)
        self._log = log

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._probe.close()

    def say(self, text):
        if self._log:
            self._log(text)

    # Looking

    def windows(self):
        """The visible top-level windows with their controls. An error dialog ends a play that does not expect the library
        to fail at once, with what it says."""
        tops = self._windows()
        for window in tops:
            if window.visible and window.caption == _ERROR_DIALOG and not self.expects_errors:
                said = " ".join(window.all("Edit")[0].text.split()) if window.all("Edit") else window.describe()
                raise PlayError(f"the library reported an error: {said}")
        return tops

    def _windows(self):
        tops = []
        for line in self._probe.ask("windows"):
            fields = line.split("\t")
            numbers = [int(fields[n]) for n in (0, 1, 2)]
            area = [int(f) for f in fields[4:9]]
            window = Window(*numbers, fields[3], *area, fields[9], int(fields[10]), fields[11], _unescape(fields[12]))
            (tops if window.depth == 0 else tops[-1].children).append(window)
        return tops

    def table(self, grid):
        """The texts of a grid: a list of rows, the header first."""
        return [row[1:] for row in self._rows(grid)]

    def selected(self, grid):
        """The numbers of the selected rows, from 1."""
        return [number for number, row in enumerate(self._rows(grid)) if row[0] == "*"]

    def _rows(self, grid):
        return [[_unescape(f) for f in line.split("\t")] for line in self._probe.ask(f"table {grid.handle}")]

    def items(self, box):
        return [_unescape(line) for line in self._probe.ask(f"items {box.handle}")]

    def until(self, what, condition, seconds=None):
        """Polls until the condition answers something true, and answers it."""
        end = time.monotonic() + (seconds or self.patience)
        while True:
            answer = condition()
            if answer:
                return answer
            if time.monotonic() > end:
                raise PlayError(f"waited in vain for {what}; on the screen: " + self._screen())
            time.sleep(0.03)

    def _screen(self):
        return " | ".join(f"{w.kind} '{w.text}' {w.flags} ({w.describe()})" for w in self._windows())

    def look(self, title):
        """The window with that caption, or None."""
        return next((w for w in self.windows() if w.caption == title), None)

    def wait(self, title, seconds=None):
        """Waits for a window with that caption that is ready for input."""

        def ready():
            window = self.look(title)
            return window if window and window.enabled and window.active else None

        return self.until(f"the window '{title}'", ready, seconds)

    def gone(self, window, seconds=None):
        """Waits until that window is no longer shown."""
        self.until(
            f"the end of '{window.text}'", lambda: all(w.handle != window.handle for w in self.windows()), seconds
        )

    def again(self, window):
        """The same window as it is now."""
        return self.until(
            f"'{window.text}'", lambda: next((w for w in self.windows() if w.handle == window.handle), None)
        )

    def waiting(self, window, what, condition):
        """Waits until the window, looked at anew, meets the condition; answers it as it then is."""

        def met():
            now = self.again(window)
            return now if condition(now) else None

        return self.until(what, met)

    # Doing

    def click(self, control, count=1):
        """Clicks the middle of a control."""
        self.click_at(*control.centre, count=count)

    def click_at(self, x, y, count=1):
        self._xdotool("mousemove", x, y, "click", "--repeat", count, "--delay", 40, 1)

    def key(self, *names):
        """Presses keys one after the other, by X names such as "Tab", "Return", "alt+n"."""
        self._xdotool("key", "--delay", 25, *names)

    def press(self, window, caption):
        """Presses a button by its access key."""
        text = window.button(caption).text.replace("&&", "")
        if "&" not in text:
            raise PlayError(f"'{caption}' has no access key")
        self.key("alt+" + text[text.index("&") + 1].lower())

    def tab_to(self, window, control, key="Tab"):
        """Presses Tab until the control, or what is inside it, has the focus; answers the window as it then is."""
        for _ in range(40):
            now = self.again(window)
            if now.has_focus(control):
                return now
            before = now.focus.handle if now.focus else 0
            self.key(key)
            self.until("the focus to move", lambda b=before: self.again(window).focus_handle not in (0, b))
        raise PlayError(f"Tab does not come to {control.kind} '{control.caption}'")

    def replace(self, window, control, text):
        """Replaces the text of the box that has the focus by typing."""
        self.key("ctrl+a")
        self.type(text) if text else self.key("Delete")
        return self.waiting(window, f"the text '{text}'", lambda w: w.same(control).text == text)

    def resize(self, window, wider, higher):
        """Drags the window's lower right corner; answers the window as it then is. Where it cannot go it stays."""
        before = self.again(window)
        corner = (before.right - 2, before.bottom - 2)
        end = (corner[0] + wider, corner[1] + higher)
        self._xdotool("mousemove", *corner, "mousedown", 1)

        # The window follows the mouse only from when it has noticed the button: so the mouse goes on moving.
        def follows():
            for part in (4, 6, 7, 8):
                self._xdotool("mousemove", *(a + (b - a) * part // 8 for a, b in zip(corner, end)))
            now = self.again(window)
            return (now.right, now.bottom) != (before.right, before.bottom)

        deadline = time.monotonic() + 2
        while not follows() and time.monotonic() < deadline:
            pass
        self._xdotool("mouseup", 1)
        return self.steady(window)

    def steady(self, window):
        """Waits until two looks in a row find the window and its controls at the same places."""
        seen = []

        def same():
            now = self.again(window)
            seen.append([(c.left, c.top, c.right, c.bottom) for c in [now, *now.children]])
            return now if len(seen) > 1 and seen[-1] == seen[-2] else None

        return self.until("the window to be steady", same)

    def type(self, text):
        """Types a text."""
        self._xdotool("type", "--delay", 20, "--", text)

    def fill(self, window, box, text):
        """Clicks into a box and replaces its text by typing."""
        self.click(box)
        self.key("ctrl+a")
        self.type(text)
        return self.waiting(
            window, f"'{text}' in the box", lambda w: any(c.handle == box.handle and c.text == text for c in w.children)
        )

    def choose_row(self, window, grid, row, height=None):
        """Makes a row of a grid (from 1) the selected one, by keys from its first row."""
        if not self.again(window).focus or self.again(window).focus.handle != grid.handle:
            header = next((c for c in window.children if c.kind == "SysHeader32" and c.top >= grid.top), None)
            top = header.bottom if header else grid.top
            self.click_at(grid.left + 30, top + 8)
        self.key("Home", *["Down"] * (row - 1))
        self.until(f"row {row}", lambda: self.selected(grid) == [row])

    def answer(self, title, button, picture=None):
        """Waits for a message box, takes its picture, presses a button of it with the mouse, answers its text."""
        box = self.wait(title)
        text = " ".join(c.text for c in box.all("Static") if c.text)
        if picture:
            self.picture(box, picture)
        self.click(box.button(button))
        self.gone(box)
        return text

    def picture(self, window, path, margin=0):
        """Saves what the display shows where the window is."""
        now = self.again(window)
        width, height = now.right - now.left + 2 * margin, now.bottom - now.top + 2 * margin
        area = f"{width}x{height}+{max(0, now.left - margin)}+{max(0, now.top - margin)}"
        # The pointer is not in the picture, but what it hovers over may be lit.
        self._xdotool("mousemove", 1, 1)
        self._settled(area)
        subprocess.run(["import", "-window", "root", "-crop", area, "+repage", str(path)], check=True)

    def _settled(self, area):
        """Waits until two looks at the area in a row are the same: everything has been painted."""
        command = ["import", "-window", "root", "-crop", area, "+repage", "-depth", "8", "rgb:-"]
        before = None
        for _ in range(20):
            now = subprocess.run(command, check=True, stdout=subprocess.PIPE).stdout
            if now == before:
                return
            before = now
            time.sleep(0.05)

    @staticmethod
    def _xdotool(*words):
        subprocess.run(["xdotool", *map(str, words)], check=True, timeout=30)


def main():
    """Shows what the probe sees: a help when a play does not find something."""
    with Player(sys.argv[1]) as player:
        for window in player.windows():
            print(window.text, "|", window.describe())


if __name__ == "__main__":
    main()

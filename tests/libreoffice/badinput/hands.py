"""A component inside the office program, for tests outside it: starts macros on the main thread, as a button in a sheet
does, and uses the windows that come up there by their controls. Commands, as arguments of `execute`:

    start SCRIPT ARGUMENTS     begins a macro on the main thread; answers its number
    outcome NUMBER             what it ended with, as JSON; "" as long as it runs
    windows                    the dialogs shown, the front one last, as JSON: each [title, texts, captions of its buttons]
    press TITLE CAPTION        presses a button of that dialog; does not wait for what it does
    put TITLE PLACE TEXT       replaces the text of a box of that dialog
    check TITLE CAPTION        makes that option or box the chosen one
    environment NAME VALUE     sets a variable of the program, "" to take it away
    insert TEXTS               as a user with a tape dialog and many places to try: each one typed, inserted, the message
                               answered; the answers as JSON
"""

import json
import os
import sys
import time

import unohelper  # it also lets the next lines find the types of the program
from com.sun.star.accessibility import AccessibleRole as Role
from com.sun.star.accessibility import AccessibleStateType as State
from com.sun.star.task import XJob
from com.sun.star.uno import Exception as UnoException
from com.sun.star.uno import RuntimeException

# The program knows the place of its components, and not that of what they import.
sys.path.append(os.path.dirname(os.path.dirname(__file__)))
from main_thread import Task  # noqa: E402

DIALOGS = (Role.DIALOG, Role.ALERT, Role.OPTION_PANE)
BUTTONS = (Role.PUSH_BUTTON, Role.CHECK_BOX, Role.RADIO_BUTTON)
# How long, in seconds, the main thread may be busy.
PATIENCE = 3


class Hands(unohelper.Base, XJob):
    def __init__(self, context):
        create = context.ServiceManager.createInstanceWithContext
        self.main_thread = create("com.sun.star.awt.AsyncCallback", context)
        self.toolkit = create("com.sun.star.awt.Toolkit", context)
        self.started = []

    def execute(self, arguments):
        command, *words = (argument.Value for argument in arguments)
        if command in ("start", "outcome", "environment", "insert"):
            return getattr(self, command)(*words)
        return self.on_main(lambda: getattr(self, command)(*words))

    def on_main(self, action):
        later = Task(action)
        self.main_thread.addCallback(later, None)
        if not later.done.wait(PATIENCE):
            raise RuntimeException("the main thread is busy", self)
        if isinstance(later.answer, Exception):
            raise RuntimeException(f"{type(later.answer).__name__}: {later.answer}", self)
        return later.answer

    def start(self, script, arguments):
        def run():
            return script.invoke(tuple(arguments), (), ())[0]
        self.started.append(Task(run))
        self.main_thread.addCallback(self.started[-1], None)
        return len(self.started) - 1

    def outcome(self, number):
        later = self.started[int(number)]
        if not later.done.is_set():
            return ""
        if isinstance(later.answer, Exception):
            return json.dumps(f"{type(later.answer).__name__}: {later.answer}")
        return json.dumps(later.answer if isinstance(later.answer, (str, bool, int, float)) else str(later.answer))

    def environment(self, name, value):
        if value:
            os.environ[name] = value
        else:
            os.environ.pop(name, None)

    # The windows

    def windows(self):
        return json.dumps([self._described(one) for one in self._dialogs()])

    def press(self, title, caption):
        button = self._control(title, lambda one: one.getAccessibleRole() == Role.PUSH_BUTTON and _plain(one) == caption)
        # One that has gone meanwhile does nothing any more.
        self.main_thread.addCallback(Task(lambda: button.doAccessibleAction(0)), None)

    def check(self, title, caption):
        self._control(title, lambda one: one.getAccessibleRole() in BUTTONS and _plain(one) == caption).doAccessibleAction(0)

    def put(self, title, place, text):
        self._boxes(self._dialog(title))[int(place)].setText(text)

    def insert(self, texts):
        return json.dumps([self._insert_one(text) for text in texts])

    def _insert_one(self, text):
        self.on_main(lambda: (self.put("Ticker tape", 2, text), self.press("Ticker tape", "Insert & new")))
        said = []
        end = time.monotonic() + 10
        while time.monotonic() < end:
            if self.on_main(lambda: self._answered(text, said)):
                return said[0] if said else ""
            time.sleep(0.004)
        return "nothing came"

    def _answered(self, text, said):
        """Answers what is shown, once each; true when the dialog waits for its user again."""
        front = self._dialogs()[-1]
        title = front.getAccessibleName()
        if title != "Ticker tape":
            told = ("Error: " if title == "Error" else "") + self._described(front)[1][-1 if title == "Vantix" else 0]
            said.append(told)
            self.press(title, "OK" if title == "Vantix" else "Abort")
            return False
        return bool(said) or self._texts("Ticker tape")[2] != text

    def _texts(self, title):
        return [box.getText() for box in self._boxes(self._dialog(title))]

    def _described(self, dialog):
        texts = [one.getText() for one in self._all(dialog) if hasattr(one, "getText") and one.getAccessibleRole() not in (*BUTTONS, Role.LABEL, Role.STATIC)]
        labels = [one.getAccessibleName() for one in self._all(dialog) if one.getAccessibleRole() in (Role.LABEL, Role.STATIC)]
        buttons = [_plain(one) for one in self._all(dialog) if one.getAccessibleRole() == Role.PUSH_BUTTON]
        return [dialog.getAccessibleName(), texts + labels, buttons]

    def _dialogs(self):
        found = []
        # The program's list begins with the newest window.
        for index in reversed(range(self.toolkit.getTopWindowCount())):
            try:
                one = self.toolkit.getTopWindow(index).getAccessibleContext()
                if one.getAccessibleRole() in DIALOGS and one.getAccessibleStateSet().contains(State.SHOWING):
                    found.append(one)
            except (UnoException, AttributeError):
                continue
        return found

    def _dialog(self, title):
        return next(one for one in reversed(self._dialogs()) if one.getAccessibleName() == title)

    def _control(self, title, wanted):
        return next(one for one in self._all(self._dialog(title)) if wanted(one))

    def _boxes(self, dialog):
        return [one for one in self._all(dialog) if one.getAccessibleRole() == Role.TEXT]

    def _all(self, parent):
        for index in range(parent.getAccessibleChildCount()):
            child = parent.getAccessibleChild(index)
            child = child.getAccessibleContext() if hasattr(child, "getAccessibleContext") else child
            yield child
            if child.getAccessibleRole() not in (Role.TABLE, Role.LIST, Role.COMBO_BOX, *BUTTONS):
                yield from self._all(child)


def _plain(button):
    return button.getAccessibleName().replace("~", "")


g_ImplementationHelper = unohelper.ImplementationHelper()
g_ImplementationHelper.addImplementation(Hands, "pellora.test.Hands", ("pellora.test.Hands",))

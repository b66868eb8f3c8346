"""Work for the main thread of the office program, for the components inside it that tests outside it speak to. A component
is called on another thread: from there it would meet windows that are just being destroyed."""

import threading

import unohelper  # it also lets the next line find the types of the program
from com.sun.star.awt import XCallback


class Task(unohelper.Base, XCallback):
    """What the main thread is to do, to be given to it as a callback: once, there or by whoever takes it first. `answer` is
    what came of it, which may be an exception, when `done` is set."""

    def __init__(self, action):
        self.action = action
        self.answer = None
        self.begun = threading.Lock()
        self.done = threading.Event()

    def notify(self, data):
        self.take()

    def take(self):
        """Does it, unless that has begun already."""
        if not self.begun.acquire(blocking=False):
            return
        try:
            self.answer = self.action()
        except Exception as error:  # noqa: BLE001, what goes wrong is the other thread's
            self.answer = error
        self.done.set()

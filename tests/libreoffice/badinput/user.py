"""A person at the display: the real keys and the real mouse, and what a window manager asks of a window."""

import ctypes
import subprocess

from office_player import OfficePlayer

_CLIENT_MESSAGE = 33
# To whoever manages the windows of the display.
_SUBSTRUCTURE = (1 << 19) | (1 << 20)

# What the program calls the box around a text of several lines: a pane that scrolls.
_TEXT_OF_LINES = "role 51"


class _Message(ctypes.Structure):
    """An event of the display that carries a message; as large as any event."""

    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("sent", ctypes.c_int), ("display", ctypes.c_void_p),
                ("window", ctypes.c_ulong), ("message", ctypes.c_ulong), ("format", ctypes.c_int),
                ("content", ctypes.c_long * 5), ("rest", ctypes.c_long * 12)]  # fmt: skip


class User(OfficePlayer):
    """Fails by PlayError when something does not come; what the library reports is for the tests to read."""

    def __init__(self, pipe):
        super().__init__(pipe)
        self.expects_errors = True

    def report(self):
        """What the error dialog says, on one line. A text of several lines is shown to nobody but to a person, who copies
        it."""
        dialog = self.wait("Error")
        clipboard = self.create("com.sun.star.datatransfer.clipboard.SystemClipboard")
        clipboard.setContents(None, None)
        self.click(next(one for one in dialog.children if one.kind == _TEXT_OF_LINES))
        self.key("ctrl+a", "ctrl+c")
        return " ".join(self.until("the copied report", lambda: self._copied(clipboard)).split())

    @staticmethod
    def _copied(clipboard):
        content = clipboard.getContents()
        for flavor in content.getTransferDataFlavors() if content else ():
            if flavor.MimeType.startswith("text/plain;charset=utf-16"):
                return content.getTransferData(flavor)
        return ""

    def window(self, title):
        """The display's number for the window whose title begins so, once it is shown."""
        search = ["xdotool", "search", "--onlyvisible", "--name", f"^{title}"]
        found = self.until(f"the window {title}", lambda: subprocess.run(search, stdout=subprocess.PIPE, text=True).stdout.split())
        return int(found[0])

    def close(self, title):
        """Uses the window's close box: has the window manager ask it to close."""
        library = ctypes.CDLL("libX11.so.6")
        library.XOpenDisplay.restype = ctypes.c_void_p
        library.XInternAtom.restype = library.XDefaultRootWindow.restype = ctypes.c_ulong
        display = ctypes.c_void_p(library.XOpenDisplay(None))
        asks = library.XInternAtom(display, b"_NET_CLOSE_WINDOW", 0)
        message = _Message(_CLIENT_MESSAGE, 0, 1, display, self.window(title), asks, 32, (0, 2, 0, 0, 0))
        root = ctypes.c_ulong(library.XDefaultRootWindow(display))
        library.XSendEvent(display, root, 0, ctypes.c_long(_SUBSTRUCTURE), ctypes.byref(message))
        library.XCloseDisplay(display)

    def key_to(self, title, *names):
        """Presses keys that reach that window whichever has the keyboard."""
        self._xdotool("key", "--window", self.window(title), *names)

    def end_by(self, title, name):
        """Presses a key that ends the program, perhaps before it is released."""
        subprocess.run(["xdotool", "key", "--window", str(self.window(title)), name], stderr=subprocess.DEVNULL)

"""Plays the user of the demo: demo_play.py work|looks DPI TARGET_SHEET. Pictures go to $PELLORA_OUT."""

import os
import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "tests" / "windows"))
from player import Player, PlayError  # noqa: E402

PROJECT = "Choose market data fields for project "
TICKER = "Add new ticker"
EDITOR = "Edit exchanges list for Stock"
TAPE = "Ticker tape"
MESSAGE = "Vantix"

FILL_IN = "Please fill in the '{}' field "
DIGIT = "The value must be a digit.  '{}'"

# Per type: what is entered wrongly with the message that answers it, and what is entered in the end.
INSTRUMENTS = [
    ("Stock", [("Ticker", "", FILL_IN), ("Primary Exchange", "", FILL_IN)],
     {"Ticker": "DEMO", "Exchange": "SMART", "Primary Exchange": "NYSE"}),
    ("Option", [("Ticker", "", FILL_IN), ("Expiry", "", FILL_IN), ("Expiry", "Dec07", DIGIT), ("Multiplier", "", DIGIT)],
     {"Ticker": "DEMO", "Expiry": "203012", "Right": "CALL", "Multiplier": "100"}),
    ("Futures", [("Ticker", "", FILL_IN), ("Expiry", "", FILL_IN), ("Multiplier", "ten", DIGIT)],
     {"Ticker": "FDMO", "Expiry": "Dec30", "Multiplier": "50"}),
    ("Index", [("Ticker", "", FILL_IN)], {"Ticker": "IDMO", "Currency": "EUR"}),
    ("FutOpt", [("Ticker", "", FILL_IN), ("Expiry", "", DIGIT)],
     {"Ticker": "PDMO", "Expiry": "203006", "Right": "PUT"}),
    ("Cash", [("Ticker", "", FILL_IN)], {"Ticker": "EUR", "Currency": "USD"}),
]  # fmt: skip


class Play:
    def __init__(self, player, out, name, dpi, target):
        self.player = player
        self.out = out
        self.dpi = dpi
        self.target = target

    def picture(self, window, name):
        self.player.picture(window, self.out / f"{name}-{self.dpi}.png")

    def expect(self, holds, what):
        if not holds:
            raise PlayError(what)

    def refused(self, text, picture=None):
        """The message box must come with exactly this text, and goes by Enter."""
        box = self.player.wait(MESSAGE)
        shown = " ".join(c.text for c in box.all("Static") if c.text)
        if picture:
            self.picture(box, picture)
        self.expect(shown.rstrip() == text.rstrip(), f"the message is '{shown}', not '{text}'")
        self.player.key("Return")
        self.player.gone(box)

    # The work: a project, six instruments, three tapes

    def project(self):
        player = self.player
        dialog = player.wait(PROJECT)
        player.press(dialog, "Create project")
        self.refused("You must select at least one value!", "project-refused")
        dialog = player.wait(PROJECT)
        player.click(dialog.button("Last Price"))
        dialog = player.waiting(dialog, "the tick", lambda w: w.button("Last Price").checked)
        for caption in ("Last Size", "Bid Price", "Ask Price"):
            player.tab_to(dialog, dialog.button(caption))
            player.key("space")
            dialog = player.waiting(dialog, "the tick", lambda w, c=caption: w.button(c).checked)
        self.picture(dialog, "project")
        player.press(dialog, "Create project")
        player.gone(dialog)

    def symbols(self):
        player = self.player
        for number, (kind, refusals, entries) in enumerate(INSTRUMENTS):
            dialog = player.wait(TICKER)
            dialog = self.choose_type(dialog, number, kind)
            if kind == "Stock":
                dialog = self.edit_list(dialog)
            for field, wrong, template in refusals:
                dialog = self.enter(dialog, field, wrong)
                player.key("Return")
                self.refused(template.format(field), f"refused-{kind}-{field}-{wrong or 'empty'}".lower().replace(" ", "-"))
                dialog = player.wait(TICKER)
                self.expect(dialog.has_focus(dialog.labelled(field)), f"the focus is not in '{field}'")
                dialog = self.enter(dialog, field, entries[field])
            for field, text in entries.items():
                dialog = self.enter(dialog, field, text)
            self.picture(dialog, f"instrument-{kind.lower()}")
            last = number == len(INSTRUMENTS) - 1
            player.key("Return") if last else player.press(dialog, "Insert & new")
            player.gone(dialog)

    def choose_type(self, dialog, number, kind):
        """By keyboard from the ticker box, where the focus is."""
        player = self.player
        self.expect(dialog.has_focus(dialog.labelled("Ticker")), "the focus does not start in the ticker box")
        types = dialog.labelled("Type")
        dialog = player.tab_to(dialog, types, "shift+Tab")
        player.key("Home", *["Down"] * number)
        return player.waiting(dialog, f"the page of {kind}", lambda w: w.same(types).text == kind)

    def enter(self, dialog, field, text):
        """Goes to a field by its access key or Tab and replaces its text."""
        player = self.player
        box = dialog.labelled(field)
        dialog = player.tab_to(dialog, box)
        if dialog.same(box).text == text:
            return dialog
        return player.replace(dialog, box, text)

    def edit_list(self, dialog):
        """Adds an exchange to the stocks' list, moves it up by one, saves; all by keyboard."""
        player = self.player
        player.tab_to(dialog, next(b for b in dialog.all("Button") if b.caption == "..."))
        player.key("space")
        editor = player.wait(EDITOR)
        box = editor.box(0)
        entries = editor.all("ListBox")[0]
        player.tab_to(editor, box)
        player.type("ARCA")
        player.key("Return")
        player.until("the new entry", lambda: player.items(entries) == ["SMART", "NYSE", "ARCA"])
        player.press(editor, "Up") if any(b.caption == "Up" for b in editor.all("Button")) else player.key("alt+u")
        player.until("the entry's new place", lambda: player.items(entries) == ["SMART", "ARCA", "NYSE"])
        self.picture(editor, "list-editor")
        player.press(editor, "Save")
        player.gone(editor)
        return player.wait(TICKER)

    def tape(self):
        player = self.player
        dialog = player.wait(TAPE)
        instruments, tapes = dialog.grid(0), dialog.grid(1)
        # A tape of the last price with its size; the first attempt names no sheet.
        player.choose_row(dialog, instruments, 2)
        ticker = self.ticker(instruments, 2)
        player.click(dialog.button("last size"))
        player.click(dialog.button("Add field name"))
        dialog = player.waiting(dialog, "the headers", lambda w: w.box(1).text == f"{ticker}(last size)")
        self.expect(dialog.box(0).text == f"{ticker}(last price)", f"the header is '{dialog.box(0).text}'")
        player.fill(dialog, dialog.box(2), "B5")
        player.click(dialog.button("Insert & new"))
        box = player.wait(MESSAGE)
        player.picture(box, self.out / f"tape-refused-{self.dpi}.png", margin=260)
        self.refused("You must select Sheet name for the Range", "tape-refusal")
        dialog = player.wait(TAPE)
        self.expect(dialog.has_focus(dialog.box(2)), "the focus is not in the location box")
        before = len(player.table(tapes))
        player.fill(dialog, dialog.box(2), f"{self.target}!K3:M22")
        player.click(dialog.button("Insert & new"))
        dialog = player.waiting(dialog, "the empty location", lambda w: w.box(2).text == "")
        player.until("the tape in the preview", lambda: len(player.table(tapes)) == before + 1)
        self.picture(dialog, "tape")
        # A tape of the ask price whose location is picked in the workbook.
        player.choose_row(dialog, instruments, 3)
        player.click(dialog.button("ask price"))
        player.waiting(dialog, "the choice", lambda w: w.button("ask price").checked)
        player.click(dialog.button("..."))
        player.gone(dialog)
        self.pick()
        dialog = player.wait(TAPE)
        dialog = player.waiting(dialog, "the picked location", lambda w: w.box(2).text.startswith(f"{self.target}!K30"))
        self.picture(dialog, "tape-picked")
        player.press(dialog, "Insert >>")
        player.gone(dialog)

    def ticker(self, instruments, row):
        return self.player.table(instruments)[row][0]

    def pick(self):
        """The user's part while the dialog is away; here the macro's side hands the place in."""

    def look(self):
        dialog = self.player.wait(TAPE)
        self.picture(dialog, "tape-again")
        self.player.click(dialog.button("Cancel"))
        self.player.gone(dialog)

    # The looks: every dialog at its smallest and enlarged

    def looks(self, title, name):
        player = self.player
        dialog = player.steady(player.wait(title))
        if name == "ticker":
            player.tab_to(dialog, next(b for b in dialog.all("Button") if b.caption == "..."))
            player.key("space")
            self.looks(EDITOR, "editor")
            dialog = player.wait(title)
        dialog = player.resize(dialog, -400, -400)
        self.picture(dialog, f"looks-{name}-smallest")
        larger = player.resize(dialog, 260 * self.dpi // 96, 180 * self.dpi // 96)
        if larger.right - larger.left > dialog.right - dialog.left:
            self.picture(larger, f"looks-{name}-enlarged")
        elif name != "project":
            raise PlayError(f"the dialog '{title}' cannot be enlarged")
        player.key("Escape")
        player.gone(dialog)


def main():
    name, dpi, target = sys.argv[1], int(sys.argv[2]), sys.argv[3]
    with Player(os.environ["PELLORA_PROBE"]) as player:
        play = Play(player, pathlib.Path(os.environ["PELLORA_OUT"]), name, dpi, target)
        if name == "work":
            for scene in os.environ.get("PELLORA_SCENES", "project,symbols,tape,look").split(","):
                getattr(play, scene)()
        else:
            play.looks(PROJECT, "project")
            play.looks(TICKER, "ticker")
            play.looks(TAPE, "tape")


if __name__ == "__main__":
    try:
        main()
    except PlayError as error:
        sys.exit(f"the play: {error}")

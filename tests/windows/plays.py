"""What the user does while a script client runs: plays.py NAME PROBE."""

import sys

from player import Player, PlayError

PROJECT = "Choose market data fields for project "
TICKER = "Add new ticker"
TAPE = "Ticker tape"
ERROR = "Error"


def close_box(player, dialog):
    player.key("alt+F4")
    player.gone(dialog)


def references(player):
    dialog = player.wait(PROJECT)
    player.key("Escape")
    player.gone(dialog)
    close_box(player, player.wait(PROJECT))
    dialog = player.wait(PROJECT)
    player.click(dialog.button("Volume"))
    player.waiting(dialog, "the tick", lambda w: w.button("Volume").checked)
    player.click(dialog.button("Create project"))
    player.gone(dialog)
    for _ in range(2):
        dialog = player.wait(PROJECT)
        player.press(dialog, "Check all")
        player.waiting(dialog, "all ticks", lambda w: w.button("Close").checked and w.button("Last Price").checked)
        player.press(dialog, "Create project")
        player.gone(dialog)

    dialog = player.wait(TICKER)
    player.key("Escape")
    player.gone(dialog)
    close_box(player, player.wait(TICKER))
    dialog = player.wait(TICKER)
    player.replace(dialog, dialog.labelled("Ticker"), "ABC")
    player.tab_to(dialog, dialog.labelled("Primary Exchange"))
    player.replace(dialog, dialog.labelled("Primary Exchange"), "NYSE")
    player.press(dialog, "Insert & new")
    player.gone(dialog)
    dialog = player.wait(TICKER)
    player.replace(dialog, dialog.labelled("Ticker"), "OPQ")
    player.tab_to(dialog, dialog.labelled("Expiry"))
    player.replace(dialog, dialog.labelled("Expiry"), "203012")
    player.key("Return")
    player.gone(dialog)


def roundtrip(player):
    # The client asks for a location first, with nothing chosen but what the dialog comes up with.
    dialog = player.wait(TAPE)
    player.click(dialog.button("last size"))
    player.waiting(dialog, "the tick", lambda w: w.button("last size").checked)
    player.click(dialog.button("..."))
    player.gone(dialog)
    dialog = player.wait(TAPE)
    player.waiting(dialog, "the location handed in", lambda w: w.box(2).text != "")
    player.press(dialog, "Insert >>")
    player.gone(dialog)
    # Shown again it is the same dialog; the close box ends it like Cancel.
    dialog = player.wait(TAPE)
    if not dialog.button("last size").checked:
        raise PlayError("the dialog has forgotten its choices")
    close_box(player, dialog)


def answer_errors(player, button, expected):
    """Answers error dialogs with that button, by the mouse, until the ticker tape dialog is ready for input."""
    answered = 0
    while True:

        def ready():
            return next((w for w in player.windows() if w.caption in (ERROR, TAPE) and w.enabled and w.active), None)

        dialog = player.until("an error or the ticker tape dialog", ready)
        if dialog.caption == TAPE:
            break
        text = dialog.box(0).text
        if expected not in text or "The call stack is:" not in text:
            raise PlayError(f"the error dialog tells '{text}'")
        player.click(dialog.button(button))
        player.gone(dialog)
        answered += 1
    if answered == 0:
        raise PlayError("no error dialog came up")
    return dialog


def failing(player):
    player.expects_errors = True
    for button in ("Ignore", "Abort"):
        dialog = answer_errors(player, button, "in Pellora.frmAddRibbon.")
        close_box(player, dialog)
    # The object goes on working.
    player.expects_errors = False
    dialog = player.wait(PROJECT)
    player.key("Escape")
    player.gone(dialog)


def up_to_the_place(player):
    """Both sample clients ask for the same: fields, instruments until cancelled, a tape. Ends where its place is asked
    for."""
    dialog = player.wait(PROJECT)
    player.click(dialog.button("Volume"))
    player.waiting(dialog, "the tick", lambda w: w.button("Volume").checked)
    player.click(dialog.button("Create project"))
    player.gone(dialog)
    dialog = player.wait(TICKER)
    player.replace(dialog, dialog.labelled("Ticker"), "ABC")
    player.tab_to(dialog, dialog.labelled("Primary Exchange"))
    player.replace(dialog, dialog.labelled("Primary Exchange"), "NYSE")
    player.press(dialog, "Insert & new")
    player.gone(dialog)
    dialog = player.wait(TICKER)
    player.key("Escape")
    player.gone(dialog)
    dialog = player.wait(TAPE)
    player.click(dialog.button("..."))
    player.gone(dialog)


def sample(player):
    up_to_the_place(player)
    dialog = player.wait(TAPE)
    player.waiting(dialog, "the location handed in", lambda w: w.box(2).text != "")
    player.press(dialog, "Insert >>")
    player.gone(dialog)


def sample_unpicked(player):
    up_to_the_place(player)
    dialog = player.wait(TAPE)
    if dialog.box(2).text:
        raise PlayError(f"the location is {dialog.box(2).text}, although none was picked")
    player.key("Escape")
    player.gone(dialog)


def lists(player):
    ticker = player.wait(TICKER)
    editor = open_editor(player, ticker)
    entries = editor.labelled("Entries")
    before = player.items(entries)
    player.key("alt+e")
    player.waiting(editor, "the list to have the focus", lambda w: w.has_focus(entries))
    player.key("Home", "alt+Down")
    player.until("the first entry to move down", lambda: player.items(entries)[:2] == [before[1], before[0]])
    # Alt, let go, must not have opened the window's menu: the next key is still the list's.
    player.key("Up")
    player.waiting(editor, "the first entry", lambda w: w.same(entries).value == "0")
    player.key("Down", "alt+Up")
    player.until("the entry to move back", lambda: player.items(entries) == before)

    # How the user leaves the window is how it comes up again; it is hidden first and saved after.
    switch_size(player, editor)
    player.press(editor, "Save")
    player.gone(editor)
    editor = open_editor(player, ticker)
    if not fills_display(editor):
        raise PlayError("the maximised editor came up small")
    switch_size(player, editor)
    player.key("Escape")
    player.gone(editor)
    editor = open_editor(player, ticker)
    if fills_display(editor):
        raise PlayError("the restored editor came up maximised")
    player.key("Escape")
    player.gone(editor)
    player.wait(TICKER)
    player.key("Escape")
    player.gone(ticker)


def open_editor(player, ticker):
    player.wait(TICKER)
    player.click(player.again(ticker).button("..."))
    return player.wait("Edit exchanges list for Stock")


def fills_display(window):
    return window.right - window.left > 1200


def switch_size(player, window):
    """Maximises a window, or takes that back, by a double click on its caption."""
    before = fills_display(player.again(window))
    now = player.again(window)
    player.click_at((now.left + now.right) // 2, now.top + 10, count=2)
    player.waiting(window, "the window's other size", lambda w: fills_display(w) != before)
    player.steady(window)


if __name__ == "__main__":
    try:
        with Player(sys.argv[2]) as the_player:
            globals()[sys.argv[1]](the_player)
    except PlayError as error:
        print(f"not ok the play {sys.argv[1]}: {error}")
        sys.exit(1)

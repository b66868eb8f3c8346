"""Settings that cannot be read or written, and those that are none."""

import fcntl
import os
from pathlib import Path

from installed import check
from states import TAPE, TICKER

FAILED = "(CFormRestore component failure) in Pellora.frmAddRibbon.Form_QueryUnload"


def settings(desk, user):
    good = Path(os.environ["XDG_CONFIG_HOME"])
    damaged(desk, good / "pellora/settings")
    unwritable(desk, user)
    without_home(desk)
    environment(desk, XDG_CONFIG_HOME=good)


def environment(desk, **variables):
    """For the next object: the place of the settings is looked up when the first one is made."""
    desk.run("Drop")
    for name, value in variables.items():
        desk.hand("environment", name, str(value))


def damaged(desk, file):
    check("settings are kept", lambda: (file.is_file(), True))
    good = file.read_bytes()
    for name, damage in (("damaged", b"\xff\x00[[[=\n" * 50), ("empty", b""), ("cut off", good[: len(good) // 2])):
        file.write_bytes(damage)
        check(f"a {name} settings file still gives a dialog", lambda: (desk.answer("Symbol", (TICKER, "Cancel"))[0], "2 "))
    file.unlink()
    file.mkdir()
    number = desk.start("Symbol")
    cancel_through(desk, number)
    check("settings that cannot be read are told of, and the call ends", lambda: (desk.end(number), "2 "))
    file.rmdir()
    file.write_bytes(good)


def cancel_through(desk, number):
    for _ in range(200):
        if desk.hand("outcome", number):
            return
        windows = desk.windows()
        if windows:
            desk.pressed(windows[-1][0], "Ignore" if "Ignore" in windows[-1][2] else "Cancel")


def unwritable(desk, user):
    """The place of a dialog, which is kept when its user closes it, cannot be."""
    book = desk.open()
    for name, make in (("a file in place of the folder", in_place_of_folder), ("a link that leads nowhere", link_to_nowhere),
                       ("a file that is huge", huge_file), ("a file that another program has locked", locked_file)):
        folder = desk.folder / name.replace(" ", "-")
        held = make(folder)
        before = seen(folder)
        environment(desk, XDG_CONFIG_HOME=folder)
        desk.run("Take", book)
        number = desk.start("Tape")
        user.wait(TAPE)
        user.key("alt+F4")
        check(f"settings, {name}: the failure is told", lambda: (FAILED in user.report(), True))
        desk.ignore(number)
        check(f"settings, {name}: the call ends", lambda: (desk.end(number), "CLOSE"))
        check(f"settings, {name}: what is there stays", lambda: (seen(folder), before))
        if held:
            held.close()
    book.close(True)


def in_place_of_folder(folder):
    folder.write_text("a file")


def link_to_nowhere(folder):
    folder.mkdir()
    (folder / "pellora").symlink_to("/proc/nosuch/folder")


def huge_file(folder):
    (folder / "pellora").mkdir(parents=True)
    with open(folder / "pellora/settings", "w") as file:
        file.write("[CurrentUser\\A]\n")
        file.truncate(1 << 32)


def locked_file(folder):
    (folder / "pellora").mkdir(parents=True)
    (folder / "pellora/settings").write_text("# Whose lock another has.\n")
    lock = open(folder / "pellora/settings.lock", "w")  # noqa: SIM115, the lock goes with it
    fcntl.flock(lock, fcntl.LOCK_EX)
    return lock


def seen(folder):
    """What is there, by names and sizes."""
    return sorted((str(one), one.lstat().st_size) for one in (folder, *folder.rglob("*")) if not one.is_dir())


def without_home(desk):
    home = os.environ["HOME"]
    environment(desk, HOME="/nonexistent", XDG_CONFIG_HOME="")
    book = desk.open()
    desk.run("Take", book)
    number = desk.start("Symbol")
    cancel_through(desk, number)
    check("without a home the call ends", lambda: (desk.end(number), "2 "))
    environment(desk, HOME=home)
    book.close(True)

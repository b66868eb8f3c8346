"""Documents that come and go beside the one whose application was handed in."""

from installed import check

TAPE = "Ticker tape"


def unrelated(desk):
    for name, during in (("before a dialog", False), ("under a dialog", True)):
        other, book = desk.open(), desk.open()
        desk.run("Take", book)
        if not during:
            other.close(True)
        number = desk.start("Tape")
        desk.wait(TAPE)
        if during:
            other.close(True)
        desk.hand("put", TAPE, 2, "Desk!M3:O9")
        desk.press(TAPE, "Insert")
        check(f"a dialog ends with its tape when a document beside the workbook was closed {name}", lambda: (
            desk.end(number), "CLOSE"))
        desk.clear()
        check(f"the tape is there when a document beside the workbook was closed {name}", lambda: (
            book.Sheets.getByName("Desk").getCellRangeByName("M3").String, "Local Time"))
        desk.run("Unload")
        book.close(True)
    late_applications(desk)


def late_applications(desk):
    """Applications that a macro keeps longer than their workbook: they work on the one in front, or are refused while the
    program knows of none there."""
    book = desk.open()
    desk.run("Keep", book)
    book.close(True)
    ended(desk, "handed in after its workbook was closed", desk.start("HandKept"))
    behind, front = desk.open(), desk.open()
    desk.run("Take", behind)
    behind.close(True)
    ended(desk, "of a workbook behind that was closed", desk.start("Tape"))
    front.close(True)


def ended(desk, name, number):
    desk.until("the dialog, or a refusal", lambda: desk.windows() or desk.hand("outcome", number))
    desk.clear()
    outcome = desk.end(number)
    check(f"an application {name} ends its call", lambda: (outcome == "CLOSE" or outcome[:4] == "440 ", True))
    check(f"an application {name} crashes nothing", lambda: (desk.alive(), True))
    desk.run("Unload")

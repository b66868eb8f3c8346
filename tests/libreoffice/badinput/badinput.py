"""x"""
import sys
from desk import Desk
if __name__ == "__main__":
    import time
    t=time.monotonic()
    desk = Desk(*sys.argv[1:])
    book = desk.open()
    print(book.Sheets.ElementNames, time.monotonic()-t)
    print(desk.run("Take", book))
    n = desk.start("Tape")
    print(desk.wait("Ticker tape"), time.monotonic()-t)
    desk.hand("check", "Ticker tape", "last price")
    print(desk.hand("insert", ("nosuch!A1:B9", "'no such'!A1", "!", "A1")))
    print(time.monotonic()-t)
    print(desk.windows())
    desk.press("Ticker tape", "Cancel")
    print(desk.end(n))
    print(desk.desktop.terminate())

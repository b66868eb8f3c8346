"""Takes the day and time of its making out of a type library, in place, so that the same description always compiles
to the same bytes: undate_tlb.py FILE"""

import re
import sys

# The compiler leaves two custom values: a text with its version and the day, and the seconds since 1970.
STAMPS = re.compile(rb"(Created by WIDL version \S+ at )[^\n]{24}(\nW*\x13\x00)....(?=WW)", re.DOTALL)
DAY = b"Thu Jan  1 00:00:00 1970"


def main():
    with open(sys.argv[1], "rb") as file:
        dated = file.read()
    undated, found = STAMPS.subn(lambda stamps: stamps[1] + DAY + stamps[2] + bytes(4), dated)
    if found != 1:
        sys.exit(f"{sys.argv[1]}: found {found} stamps instead of one; has the compiler changed?")
    with open(sys.argv[1], "wb") as file:
        file.write(undated)


if __name__ == "__main__":
    main()

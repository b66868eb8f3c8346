"""Compares what an installation has written with the tables of the administrators' page:
listed.py PAGE CLASSES HOME BITS... CLASSES is what "reg query HKCU\\Software\\Classes /s" says, HOME the folder of the
files, BITS 64, or 64 and 32. Prints a line "ok ..." or "not ok ..." for each table."""

import pathlib
import re
import sys


def table(page, first):
    """The rows of the table whose head begins with that word, quotes of code taken off."""
    lines = page.split(f"| {first} |")[1].split("\n\n")[0].split("\n")[2:]
    return [[cell.strip().strip("`") for cell in line.strip().strip("|").split("|")] for line in lines]


def written(text):
    """What the registry says, as (key, name, data) in lower case."""
    found, key = set(), ""
    for line in text.splitlines():
        value = re.match(r"    (.+?)    REG_SZ ?(?: {3}(.*))?$", line)
        if line.upper().startswith("HKEY_CURRENT_USER\\SOFTWARE\\CLASSES\\"):
            key = line.split("\\", 3)[3]
        elif value:
            name = "" if value[1] == "(Default)" else value[1]
            found.add((key.lower(), name.lower(), (value[2] or "").strip().lower()))
    return found


def verdict(name, found, expected):
    if found == expected:
        print(f"ok {name}")
    else:
        print(f"not ok {name}: missing {sorted(expected - found)}, too many {sorted(found - expected)}")


def main():
    page = pathlib.Path(sys.argv[1]).read_text(encoding="utf-8")
    home = pathlib.Path(sys.argv[3])
    windows = "C:" + str(home).split("drive_c")[1].replace("/", "\\")
    keys = set()
    for bits in sys.argv[4:]:
        library = f"{windows}\\win{bits}\\Pellora.dll"
        for key, name, data in table(page, "key"):
            key = key.replace("BITNESS", f"win{bits}")
            # The 64-bit system's place for what its 32-bit programs see.
            if bits == "32" and key.startswith(("CLSID", "Interface")):
                key = "Wow6432Node\\" + key
            keys.add((key.lower(), name.lower(), data.replace("FILE", library).lower()))
    verdict("the user's classes are exactly those of the administrators' page",
            written(pathlib.Path(sys.argv[2]).read_text()), keys)  # fmt: skip
    files = {row[0].rsplit("Pellora\\", 1)[1].replace("\\", "/") for row in table(page, "file")}
    there = {str(path.relative_to(home)) for path in home.rglob("*") if path.is_file()}
    verdict("the files are exactly those of the administrators' page", there, files)


if __name__ == "__main__":
    main()

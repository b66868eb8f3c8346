"""Adds up the results in a folder: GoogleTest's XML files, and *.tap files of lines "ok NAME", "not ok NAME" and
"skip NAME". Prints the failures and the sums; ends with 1 when anything failed or nothing was found.

    tally.py FOLDER COMMAND NOTE
"""

import pathlib
import sys
import xml.etree.ElementTree as xml


def cases_of(folder):
    """Yields (outcome, name) of each test."""
    for path in sorted(folder.rglob("*.xml")):
        for case in xml.parse(path).iter("testcase"):
            name = f"{case.get('classname')}.{case.get('name')}"
            if case.find("failure") is not None:
                yield "failed", name
            elif case.find("skipped") is not None or case.get("status") == "notrun":
                yield "skipped", name
            else:
                yield "passed", name
    for path in sorted(folder.rglob("*.tap")):
        for line in path.read_text(errors="replace").splitlines():
            for mark, outcome in (("ok ", "passed"), ("not ok ", "failed"), ("skip ", "skipped")):
                if line.startswith(mark):
                    yield outcome, f"{path.stem}: {line[len(mark):]}"


def main():
    folder, command, note = sys.argv[1:]
    counts = {"passed": 0, "failed": 0, "skipped": 0}
    for outcome, name in cases_of(pathlib.Path(folder)):
        counts[outcome] += 1
        if outcome != "passed":
            print(f"{outcome}: {name}")
    sums = ", ".join(f"{count} {outcome}" for outcome, count in counts.items())
    print(sums)
    print(f"{command}: {sums} ({note})")
    return 1 if counts["failed"] or not counts["passed"] else 0


if __name__ == "__main__":
    sys.exit(main())

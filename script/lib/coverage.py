"""Sums up line coverage: reads the compiler's coverage reports (one JSON document a line), prints a line for each file
of one folder, the total, and the lines that were not run.

usage: coverage.py ROOT FOLDER LEAST_PERCENT <reports
"""

import json
import os
import sys


def read_reports(stream, root, folder):
    """How often each line was run: {path below the root: {line: count}}. A line of a header counts wherever it was
    compiled in."""
    counts = {}
    prefix = os.path.join(root, folder) + os.sep
    for document in stream:
        if not document.strip():
            continue
        report = json.loads(document)
        for entry in report["files"]:
            path = os.path.normpath(os.path.join(report["current_working_directory"], entry["file"]))
            if not path.startswith(prefix):
                continue
            lines = counts.setdefault(os.path.relpath(path, root), {})
            for line in entry["lines"]:
                number = line["line_number"]
                lines[number] = lines.get(number, 0) + line["count"]
    return counts


def source_lines(root, path):
    with open(os.path.join(root, path), encoding="utf-8") as stream:
        return stream.read().splitlines()


def percent(run, lines):
    return 100.0 * run / lines if lines else 100.0


def main():
    root, folder, least = sys.argv[1], sys.argv[2].rstrip("/"), float(sys.argv[3])
    counts = read_reports(sys.stdin, root, folder)
    if not counts:
        sys.exit(f"coverage: no line of {folder} was compiled into the tests")
    all_lines = all_run = 0
    for path, lines in sorted(counts.items()):
        run = sum(1 for count in lines.values() if count > 0)
        all_lines += len(lines)
        all_run += run
        print(f"{percent(run, len(lines)):6.1f} %  {run:4d} of {len(lines):4d}  {path}")
    total = percent(all_run, all_lines)
    print(f"{total:6.1f} %  {all_run:4d} of {all_lines:4d}  in all")

    for path, lines in sorted(counts.items()):
        text = source_lines(root, path)
        for number in sorted(number for number, count in lines.items() if count == 0):
            print(f"not run: {path}:{number}: {text[number - 1].strip()}")
    if total < least:
        sys.exit(f"coverage: less than {least:g} % of the lines of {folder} are run")


main()

"""Makes a zip archive whose bytes depend on its content only: zip_files.py ARCHIVE NAME=FILE..."""

import pathlib
import sys
import zipfile


def main(archive, *entries):
    target = pathlib.Path(archive)
    target.parent.mkdir(parents=True, exist_ok=True)
    unfinished = target.with_name(target.name + ".new")
    with zipfile.ZipFile(unfinished, "w") as made:
        for entry in entries:
            name, _, path = entry.partition("=")
            # The time and the rights of the built files are this machine's; the first day of the format is everyone's.
            info = zipfile.ZipInfo(name, (1980, 1, 1, 0, 0, 0))
            info.compress_type = zipfile.ZIP_DEFLATED
            info.external_attr = 0o644 << 16
            info.create_system = 3
            made.writestr(info, pathlib.Path(path).read_bytes(), compresslevel=9)
    unfinished.replace(target)


if __name__ == "__main__":
    main(*sys.argv[1:])

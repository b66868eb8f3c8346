"""Puts an archive to hand out together: archive.py windows|libreoffice FILE SECONDS_SINCE_1970. The same files and day,
the same bytes. Fails when a page of its guide leads to a page or picture that is not in it."""

import io
import pathlib
import sys
import time
import zipfile

from pages import page

ROOT = pathlib.Path(__file__).resolve().parents[2]

# For each archive: the files by their names in it, and the pages of docs/ that are its guide.
SCRIPTS = ["README.txt", "install.cmd", "uninstall.cmd", "check.cmd", "check.vbs"]
WINDOWS = {
    **{f"{bits}/Pellora.dll": f"build/{bits}/Pellora.dll" for bits in ("win64", "win32")},
    **{name: f"package/{name}" for name in SCRIPTS},
    **{f"samples/{name}": f"samples/{name}" for name in ("Pellora.bas", "client.vbs", "client.js", "quotes.xlsx")},
}
LIBREOFFICE_SAMPLES = ["Pellora.bas", "Pellora.ods", "Pellora.xlsm", "PelloraMacros.oxt", "quotes.xlsx"]
LIBREOFFICE = {
    "pellora.oxt": "build/native/pellora.oxt",
    "README.txt": "package/libreoffice/README.txt",
    **{f"samples/{name}": f"samples/{name}" for name in LIBREOFFICE_SAMPLES},
}
ARCHIVES = {
    "windows": (WINDOWS, ["user-guide", "macro-reference", "administrators", "troubleshooting"], "\r\n"),
    "libreoffice": (LIBREOFFICE, ["user-guide", "libreoffice", "macro-reference", "troubleshooting"], "\n"),
}

# What has lines, and ends them as the programs of its system expect.
TEXTS = {".cmd", ".vbs", ".js", ".bas", ".txt"}


def contents(files, guide, line_end):
    """Yields (name in the archive, bytes)."""
    for name, path in files.items():
        yield name, text_or_bytes(ROOT / path, line_end)
    pictures = set()
    for name in guide:
        html, shown, lost = page((ROOT / "docs" / f"{name}.md").read_text(encoding="utf-8"), set(guide))
        if lost:
            raise SystemExit(f"archive.py: the page {name} leads to {', '.join(sorted(lost))}, not in this archive")
        pictures |= shown
        yield f"guide/{name}.html", html.replace("\n", line_end).encode()
    for picture in pictures:
        yield f"guide/{picture}", (ROOT / "docs" / picture).read_bytes()


def text_or_bytes(path, line_end):
    content = path.read_bytes()
    if path.suffix not in TEXTS:
        return content
    content.decode("ascii")  # these programs read a text by the system's code page
    return content.replace(b"\r\n", b"\n").replace(b"\n", line_end.encode())


def main():
    kind, file, day = sys.argv[1:]
    day = time.gmtime(int(day))[:6]
    memory = io.BytesIO()
    with zipfile.ZipFile(memory, "w", zipfile.ZIP_DEFLATED, compresslevel=9) as archive:
        for name, content in sorted(contents(*ARCHIVES[kind])):
            entry = zipfile.ZipInfo(name, day)
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.create_system = 0
            archive.writestr(entry, content)
    pathlib.Path(file).write_bytes(memory.getvalue())


if __name__ == "__main__":
    main()

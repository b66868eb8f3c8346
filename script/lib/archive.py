"""Puts the archive to hand out together: archive.py FILE SECONDS_SINCE_1970. The same files and day, the same bytes."""

import io
import pathlib
import sys
import time
import zipfile

from pages import page

ROOT = pathlib.Path(__file__).resolve().parents[2]
GUIDE = ["user-guide", "macro-reference", "administrators", "troubleshooting"]

# What has lines, and ends them as Windows programs expect.
TEXTS = {".cmd", ".vbs", ".js", ".bas", ".txt"}


def contents():
    """Yields (name in the archive, bytes)."""
    for bits in ("win64", "win32"):
        yield f"{bits}/Pellora.dll", (ROOT / "build" / bits / "Pellora.dll").read_bytes()
    for path in (ROOT / "package").iterdir():
        yield path.name, text_or_bytes(path)
    for name in ("Pellora.bas", "client.vbs", "client.js", "quotes.xlsx"):
        yield f"samples/{name}", text_or_bytes(ROOT / "samples" / name)
    pictures = set()
    for name in GUIDE:
        html, shown = page((ROOT / "docs" / f"{name}.md").read_text(encoding="utf-8"), set(GUIDE))
        pictures |= shown
        yield f"guide/{name}.html", html.replace("\n", "\r\n").encode()
    for picture in pictures:
        yield f"guide/{picture}", (ROOT / "docs" / picture).read_bytes()


def text_or_bytes(path):
    content = path.read_bytes()
    if path.suffix not in TEXTS:
        return content
    content.decode("ascii")  # these programs read a text by the system's code page
    return content.replace(b"\r\n", b"\n").replace(b"\n", b"\r\n")


def main():
    day = time.gmtime(int(sys.argv[2]))[:6]
    memory = io.BytesIO()
    with zipfile.ZipFile(memory, "w", zipfile.ZIP_DEFLATED, compresslevel=9) as archive:
        for name, content in sorted(contents()):
            entry = zipfile.ZipInfo(name, day)
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.create_system = 0
            archive.writestr(entry, content)
    pathlib.Path(sys.argv[1]).write_bytes(memory.getvalue())


if __name__ == "__main__":
    main()

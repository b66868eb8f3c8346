"""Inspects the built extension without installing it: one line "ok ..." or "not ok ..." a fact.

    inspect_extension.py FILE
"""

import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as xml
import zipfile
from pathlib import Path

# What the office program brings along, and what every system has that can run it.
OFFICE = {"libuno_cppu.so.3", "libuno_cppuhelpergcc3.so.3", "libuno_sal.so.3", "libuno_salhelpergcc3.so.3"}
SYSTEM = {"libc.so.6", "libm.so.6", "libgcc_s.so.1", "libstdc++.so.6", "ld-linux-x86-64.so.2"}

CONTENT = {"META-INF/manifest.xml", "Pellora.components", "Pellora.rdb", "description.xml", "libPellora.so"}
DOORS = {"Pellora_cPellora_get", "Pellora_ObjectFactory_get"}

_failed = 0


def check(holds, fact, found=""):
    global _failed
    _failed += not holds
    print(("ok " if holds else "not ok ") + fact + (f" ({found})" if found and not holds else ""))


def run(*command):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True).stdout


def inspect_library(path):
    dynamic = run("readelf", "-dW", path)
    needed = set(re.findall(r"\(NEEDED\).*\[(.*)\]", dynamic))
    check(needed and needed <= OFFICE | SYSTEM, "imports libraries of the office and the system only",
          ", ".join(sorted(needed - OFFICE - SYSTEM)))
    check("RPATH" not in dynamic and "RUNPATH" not in dynamic, "has no path of the machine it was built on")
    check(re.search(r"FLAGS_1\).*NOW", dynamic), "is bound as a whole when it is loaded")
    headers = run("readelf", "-lW", path)
    check(re.search(r"GNU_RELRO", headers), "has tables that cannot be written once it is loaded")
    check(re.search(r"GNU_STACK.*\bRW\b", headers), "has a stack that cannot be run")
    check(not re.search(r"LOAD.*RWE", headers), "has no memory to write and to run")
    # The functions; types of the office's own exceptions have to be shared to be caught.
    functions = set(re.findall(r" T (\S+)$", run("nm", "-D", "--defined-only", path), re.MULTILINE))
    check(functions == DOORS, "exports its entry points and no more", ", ".join(sorted(functions ^ DOORS)))
    check("no symbols" in run("nm", path), "is stripped")
    size = Path(path).stat().st_size
    check(size < 3_000_000, "is smaller than 3 MB", str(size))
    check(str(Path.cwd()).encode() not in Path(path).read_bytes(), "does not name the folder it was built in")


def inspect_archive(path, archive):
    names = archive.namelist()
    check(set(names) == CONTENT and len(names) == len(CONTENT), "has the expected files", ", ".join(names))
    check(all(entry.date_time == (1980, 1, 1, 0, 0, 0) for entry in archive.infolist()), "has no day of its making")
    manifest = xml.fromstring(archive.read("META-INF/manifest.xml"))
    listed = {value for entry in manifest for key, value in entry.attrib.items() if key.endswith("full-path")}
    check(listed == {"Pellora.components", "Pellora.rdb"}, "names what is to be registered", ", ".join(listed))
    components = archive.read("Pellora.components").decode()
    check(set(re.findall(r'constructor="(\w+)"', components)) == DOORS, "names the entry points that the library has")
    version = re.search(r"^project\(Pellora VERSION ([\d.]+)", Path("CMakeLists.txt").read_text(), re.MULTILINE)[1]
    description = archive.read("description.xml").decode()
    check(f'<version value="{version}"/>' in description, "has the project's version")
    check("<identifier value=" in description and "<display-name>" in description, "has an identifier and a name")
    with tempfile.TemporaryDirectory() as folder:
        archive.extractall(folder)
        again = Path(folder) / "again.oxt"
        entries = [f"{name}={folder}/{name}" for name in names]
        subprocess.run([sys.executable, "cmake/zip_files.py", again, *entries], check=True)
        check(again.read_bytes() == Path(path).read_bytes(), "is the same bytes when it is made again")
        inspect_library(f"{folder}/libPellora.so")


def main():
    (path,) = sys.argv[1:]
    with zipfile.ZipFile(path) as archive:
        inspect_archive(path, archive)
    return 1 if _failed else 0


if __name__ == "__main__":
    sys.exit(main())

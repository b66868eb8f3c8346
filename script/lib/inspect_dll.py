"""Inspects a built DLL without running it: one line "ok ..." or "not ok ..." a fact.

    inspect_dll.py FILE MACHINE        MACHINE is x86-64 or i386
"""

import re
import subprocess
import sys

MACHINES = {"x86-64": "pei-x86-64", "i386": "pei-i386"}

# What the library uses of a Windows installation, and no more. The compiler's run time is not among it.
SYSTEM = {
    "advapi32.dll", "comctl32.dll", "gdi32.dll", "kernel32.dll", "msvcrt.dll", "ole32.dll", "oleaut32.dll",
    "shell32.dll", "user32.dll", "uxtheme.dll", "version.dll",
}

# Relocatable to random places, data is not run, and on 64-bit the places are far apart.
FLAGS = {"x86-64": ["DYNAMIC_BASE", "NX_COMPAT", "HIGH_ENTROPY_VA"], "i386": ["DYNAMIC_BASE", "NX_COMPAT"]}

# What only the compiler's own library of threads would ask for, which keeps handles for as long as the process lives.
OF_THREADS = {"CreateSemaphoreA", "AddVectoredExceptionHandler"}

DOORS = {"DllCanUnloadNow", "DllGetClassObject", "DllRegisterServer", "DllUnregisterServer"}
MORE_DOORS = {"DllInstall"}

_failed = 0


def check(holds, fact, found=""):
    global _failed
    _failed += not holds
    print(("ok " if holds else "not ok ") + fact + (f" ({found})" if found and not holds else ""))


def objdump(option, path):
    command = ["x86_64-w64-mingw32-objdump", option, path]
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True).stdout


def symbols(path):
    return objdump("-t", path)


def executable_data(path):
    """The names of sections that code can write to and run."""
    sections = re.findall(r"^\s*\d+ (\S+).*\n\s+(.*)$", objdump("-h", path), re.MULTILINE)
    return ", ".join(name for name, flags in sections if "CODE" in flags and "READONLY" not in flags)


def relocations(dump):
    """The size of the table by which the system moves the image; without it the flag for that is a mere word."""
    size = re.search(r"^Entry 5 [0-9a-f]+ ([0-9a-f]+) Base Relocation Directory", dump, re.MULTILINE)
    return int(size[1], 16) if size else 0


def main():
    path, machine = sys.argv[1:]
    dump = objdump("-p", path)
    check(f"file format {MACHINES[machine]}" in dump, f"is a {machine} image")
    imports = {name.lower() for name in re.findall(r"DLL Name: (\S+)", dump)}
    check(imports and imports <= SYSTEM, "imports system DLLs only", ", ".join(sorted(imports - SYSTEM)))
    exports = re.findall(r"^\s*\[\s*\d+\]\s+(?:\+base\[\s*\d+\]\s+[0-9a-f]+\s+)?(\S+)$", dump, re.MULTILINE)
    check(set(exports) - MORE_DOORS == DOORS, "exports the doors of a server and no more", ", ".join(exports))
    asked = set(re.findall(r"^\t[0-9a-f]+\t\s+\d+\s+(\S+)$", dump, re.MULTILINE))
    check(len(asked) > 100 and not asked & OF_THREADS, "keeps nothing for threads", ", ".join(asked & OF_THREADS))
    with open(path, "rb") as file:
        content = file.read()
    check(len(content) < 1_500_000, "is smaller than 1.5 MB", str(len(content)))
    check("no symbols" in symbols(path), "is stripped")
    check(re.search(r"^Time/Date\s+(Thu Jan  1 00:00:00 1970|.*not set.*)$", dump, re.MULTILINE), "has no day of its making")
    for flag in FLAGS[machine]:
        check(flag in dump, f"has the flag {flag}")
    check(relocations(dump) and " .reloc " in objdump("-h", path), "can be moved to another place")
    check(not executable_data(path), "has no section that is both written and run", executable_data(path))
    check("TYPELIB".encode("utf-16-le") in content and b"MSFT\x02\x00\x01\x00" in content, "carries its type library")
    check("VS_VERSION_INFO".encode("utf-16-le") in content, "carries its version")
    check(b"Microsoft.Windows.Common-Controls" in content, "carries the manifest of the common controls")
    return 1 if _failed else 0


if __name__ == "__main__":
    try:
        sys.exit(main())
    except OSError as error:
        print(f"not ok {sys.argv[1]} is there ({error.strerror})")
        sys.exit(1)

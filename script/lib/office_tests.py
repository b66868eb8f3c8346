#!/usr/bin/python3
"""Runs a library of tests inside the office program: office_tests.py PIPE LIBRARY [ARGUMENT...]

Reaches the running program by the name of its pipe, loads the library into it, and has the tests run on its main thread.
VARIABLE=VALUE among the arguments is set in the program's environment. Ends with the tests' status.
"""
import sys
import time
from pathlib import Path

import uno
from com.sun.star.beans import NamedValue
from com.sun.star.connection import NoConnectException


def office(pipe, seconds=60):
    """The component context of the program, once it answers."""
    local = uno.getComponentContext()
    resolver = local.ServiceManager.createInstanceWithContext("com.sun.star.bridge.UnoUrlResolver", local)
    end = time.monotonic() + seconds
    while True:
        try:
            return resolver.resolve(f"uno:pipe,name={pipe};urp;StarOffice.ComponentContext")
        except NoConnectException:
            if time.monotonic() > end:
                raise
            time.sleep(0.05)


def main(pipe, library, *words):
    context = office(pipe)
    manager = context.ServiceManager
    loader = manager.createInstanceWithContext("com.sun.star.loader.SharedLibrary", context)
    factory = loader.activate("pellora.test.Runner", "", Path(library).resolve().as_uri(), None)
    runner = factory.createInstanceWithContext(context)
    values = []
    for word in words:
        name, mark, value = word.partition("=")
        named = mark and not word.startswith("-")
        values.append(NamedValue(name, value) if named else NamedValue("argument", word))
    return runner.execute(tuple(values))


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))

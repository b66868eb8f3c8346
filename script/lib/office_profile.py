#!/usr/bin/python3
"""Fits out the profile of a running office program and ends the program: office_profile.py PIPE FOLDER EXTENSION...

Adds the extensions, allows the macros of workbooks in the folder, and takes away what would come up at a first start.
The program's own command for extensions refuses root; here root and others do the same, in this one profile.
"""

import sys
from pathlib import Path

import uno
from com.sun.star.lang import DisposedException
import unohelper
from com.sun.star.task import XInteractionHandler
from com.sun.star.ucb import XCommandEnvironment
from office_tests import office


class Quiet(unohelper.Base, XCommandEnvironment, XInteractionHandler):
    """Nobody looks on: everything asked is agreed to."""

    def getInteractionHandler(self):
        return self

    def getProgressHandler(self):
        return None

    def handle(self, request):
        for answer in request.getContinuations():
            if answer.queryInterface(uno.getTypeByName("com.sun.star.task.XInteractionApprove")):
                answer.select()


def set_values(context, node, **values):
    provider = context.ServiceManager.createInstanceWithContext("com.sun.star.configuration.ConfigurationProvider", context)
    path = uno.createUnoStruct("com.sun.star.beans.PropertyValue", Name="nodepath", Value=node)
    access = provider.createInstanceWithArguments("com.sun.star.configuration.ConfigurationUpdateAccess", (path,))
    for name, value in values.items():
        uno.invoke(access, "setPropertyValue", (name, value))
    access.commitChanges()


def main(pipe, folder, *extensions):
    context = office(pipe)
    # No tip of the day, no word on what is new.
    set_values(context, "/org.openoffice.Office.Common/Misc", ShowTipOfTheDay=False, FirstRun=False)
    set_values(context, "/org.openoffice.Setup/Product", ooSetupLastVersion="99.0")
    trusted = uno.Any("[]string", (Path(folder).resolve().as_uri(),))
    set_values(context, "/org.openoffice.Office.Common/Security/Scripting", SecureURL=trusted)
    manager = context.getValueByName("/singletons/com.sun.star.deployment.ExtensionManager")
    for extension in extensions:
        manager.addExtension(Path(extension).resolve().as_uri(), (), "user", manager.createAbortChannel(), Quiet())
    desktop = context.ServiceManager.createInstanceWithContext("com.sun.star.frame.Desktop", context)
    try:
        desktop.terminate()
    except DisposedException:
        # It was quicker to end than to answer.
        pass


if __name__ == "__main__":
    main(*sys.argv[1:])

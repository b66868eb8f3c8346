function equal(name, found, expected) {
  if (found === expected) WScript.Echo("ok " + name);
  else WScript.Echo("not ok " + name + ": '" + found + "' instead of '" + expected + "'");
}

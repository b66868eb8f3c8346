// The library's dialogs from JScript:
//
//   cscript client.js WORKBOOK [APPLICATION RANGE RESULT]
//
// APPLICATION is the name of the class of the spreadsheet program, "Excel.Application" unless given. RANGE is handed to
// the ticker tape dialog when it asks for a place; without it the user picks one. RESULT is a file for the workbook.
// Prints a line for each step, "done" at the end.
//
// This language hands over numbers and texts by value: the answers of the methods arrive, what they write into their
// arguments does not. Use VBScript or VBA where the chosen fields or the contract itself are wanted.
var componentFailure = 0x80040064 | 0;

function argument(number, otherwise) {
  return WScript.Arguments.length > number ? WScript.Arguments(number) : otherwise;
}

function pickedPlace(app) {
  var place = argument(2, "");
  if (place !== "") return place;
  // Type 8 is a range; cancelled, the answer is false. This language cannot leave an argument out in the middle, only
  // pass an empty value, which is not the same to every program: so all of them are given. Default, left and top in
  // points, no help.
  var picked = app.InputBox("Where shall the ticker tape begin?", "Ticker tape", "", 60, 60, "", 0, 8);
  return picked ? "'" + picked.Worksheet.Name.replace(/'/g, "''") + "'!" + picked.Address() : "";
}

// The dialog steps aside when a place is to be picked, and goes on where it was when it is shown again.
function setUpTapes(library, app) {
  for (;;) {
    var outcome = library.ShowRefEditInterface();
    WScript.Echo("tape: " + outcome);
    if (outcome !== "DATABEGINNING") return;
    var place = pickedPlace(app);
    if (place !== "") library.RefEditInputs = place;
    WScript.Echo("place: " + library.RefEditInputs);
  }
}

function addInstruments(library) {
  var answer;
  do {
    answer = library.AddNewSymbol("", "", "", 0, "", 0, "", "", "", 0);
    WScript.Echo("instrument: " + answer);
  } while (answer === 4);
}

// What the comment at the top says, for who starts this without a workbook.
function usage() {
  WScript.Echo("usage: cscript client.js WORKBOOK [APPLICATION RANGE RESULT]");
  WScript.Quit(1);
}

function main() {
  if (WScript.Arguments.length === 0) usage();
  var className = argument(1, "Excel.Application");
  var app = new ActiveXObject(className);
  if (className === "Excel.Application") {
    app.Visible = true;
    app.Workbooks.Open(WScript.Arguments(0));
  } else {
    app.Open(WScript.Arguments(0));
  }
  // Create the object, hand over the application.
  var library = new ActiveXObject("Pellora.cPellora");
  library.ExcelApplication = app;
  try {
    WScript.Echo("fields: " + library.CreateNewProject(0, 0, 0, 0, 0, 0, 0, 0, 0, 0));
    addInstruments(library);
    setUpTapes(library, app);
  } catch (error) {
    if (error.number === componentFailure) WScript.Echo("the dialog failed, or another one is open");
    else WScript.Echo("error " + error.number + ": " + error.description);
  } finally {
    library.UnloadfrmMaster();
    library = null;
  }
  if (argument(3, "") !== "") app.Save(argument(3, ""));
}

main();
WScript.Echo("done");

// Another engine with other habits: no by-reference variables, property puts of objects without Set.
function check(holds, name) { WScript.Echo((holds ? "ok " : "not ok ") + name); }

function SheetProgram() {
  this.Range = this.Intersect = this.Columns = this.ActiveSheet = this.ActiveWorkbook = this.Worksheets = null;
  this.ScreenUpdating = true;
}

var library = new ActiveXObject("Pellora.cPellora");
check(library.ExcelApplication === null, "there is no application at first");

var program = new SheetProgram();
library.ExcelApplication = program;
check(library.ExcelApplication === program, "an object with the members in question is accepted, and is itself again");
check(library.m_ObjExcelApplication === program, "the field holds what the property was given");

var number = 0;
try { library.ExcelApplication = {}; } catch (error) { number = error.number & 0xFFFF; }
check(number === 13, "an object without the members is a type mismatch");

check(library.AddNewSymbol("", "", "", 0, "", 0, "", "", "", 1) === 2, "literals are accepted by AddNewSymbol");
check(library.CreateNewProject(0, 0, 0, 0, 0, 0, 0, 0, 0, 0) === false, "literals are accepted by CreateNewProject");

WScript.Echo("END");

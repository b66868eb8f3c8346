
// The whole round trip by another language's hand, on a workbook it opens itself. The dialogs are answered by the
// play "roundtrip". Arguments: the workbook, a sheet that can take a tape, the file to save.
var application = new ActiveXObject("PelloraWorkbook.Application");
application.Open(WScript.Arguments(0));
var sheet = WScript.Arguments(1);
var library = new ActiveXObject("Pellora.cPellora");
library.ExcelApplication = application;

var active = application.ActiveSheet.Name;
var updating = application.ScreenUpdating;
equal("the dots answer the request for a location", library.ShowRefEditInterface(), "DATABEGINNING");
library.RefEditInputs = sheet + "!$F$40";
equal("the location handed in is answered as it was", library.RefEditInputs, sheet + "!$F$40");
equal("Insert answers that the dialog is finished", library.ShowRefEditInterface(), "CLOSE");
equal("the close box answers the same", library.ShowRefEditInterface(), "CLOSE");
library.UnloadfrmMaster();

var records = application.Range("Tape_header_for_Ticker");
var last = 1;
while (records.Cells(last + 1, 1).Value) ++last;
equal("the single cell has become a tape's area", records.Cells(last, 4).Value, sheet + "!F40:H59");
var quote = application.Range("TWS_Last_Price").Cells(2, 1).Address;
equal("the record links to the instrument's last price", records.Cells(last, 2).FormulaLocal, "=TWS_Quotes!" + quote);

var tape = application.Worksheets(sheet).Range("F40:H40");
equal("the tape begins with the time", tape.Cells(1, 1).Value, "Local Time");
equal("its headers are the ticker", tape.Cells(1, 2).Value, application.Range("TWS_Symbol").Cells(2, 1).Value);
equal("for the size too", tape.Cells(1, 3).Value, tape.Cells(1, 2).Value);
equal("the active sheet is what it was", application.ActiveSheet.Name, active);
equal("screen updating is what it was", application.ScreenUpdating, updating);
application.Save(WScript.Arguments(2));
WScript.Echo("end");

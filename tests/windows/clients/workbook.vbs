' The embedded workbook by a script's hand. Arguments: the sample workbook, the file to save.
Dim app, sheet, cell, block, other
Set app = CreateObject("PelloraWorkbook.Application")
app.Open WScript.Arguments(0)
Equal "the open workbook has the file's name", app.ActiveWorkbook.Name, "quotes.xlsx"
Equal "a workbook name marks its column", app.Range("TWS_Symbol").Address, "$A:$A"
Equal "the second cell is the first instrument", app.Range("TWS_Symbol").Cells(2, 1).Value, "QVX"
block = app.Range("TWS_Quotes!A1:I3").Value
Equal "a block is counted from one", LBound(block, 1) & LBound(block, 2) & UBound(block, 1) & UBound(block, 2), "1139"
Equal "it holds the cells", block(2, 7), "SMART"
Equal "a day is a date", TypeName(app.Range("TWS_Quotes!C9").Value), "Date"
Equal "the recorded link is a formula", app.Range("Tape_header_for_Ticker").Cells(2, 2).FormulaLocal, "=TWS_Quotes!$N$2"
Equal "it shows the quote", app.Range("Tape_header_for_Ticker").Cells(2, 2).Value, app.Range("TWS_Quotes!N2").Value
Equal "the crossing of a row and a column is a cell", app.Intersect(app.Range("A7:R7"), app.Columns(5)).Address, "$E$7"
Check "areas without a common cell cross in nothing", app.Intersect(app.Range("A1"), app.Range("B1")) Is Nothing

app.Worksheets("desk").Select
Set sheet = app.ActiveSheet
Equal "a sheet is found in any letter case", sheet.Name, "Desk"
Set cell = sheet.Range("H3:J5")
cell.Value = "=TWS_Quotes!$N$2"
cell.Borders(7).LineStyle = 5
cell.Interior.ColorIndex = 15
cell.ColumnWidth = 10
sheet.Range("L1") = "default"
Equal "the default member of a range is its value", sheet.Range("L1"), "default"

On Error Resume Next
app.Range "nosuch"
Fails "no reference", 1004
app.Worksheets "nosuch"
Fails "no such sheet", 9
app.Nosuch
Fails "no such member", 438
app.Open "nosuch.xlsx"
Fails "no such file", 1004
On Error Goto 0

app.Save WScript.Arguments(1)
Set other = CreateObject("PelloraWorkbook.Application")
Equal "each application has a workbook of its own", other.ActiveWorkbook.Name, "Book1"
other.Open WScript.Arguments(1)
Set cell = other.Worksheets("Desk").Range("H3:J5")
Equal "the saved file has the formula", cell.Cells(1, 1).Formula, "=TWS_Quotes!$N$2"
Equal "the border", cell.Borders(7).LineStyle, 5
Equal "the background", cell.Interior.ColorIndex, 15
Equal "the width", cell.ColumnWidth, 10
Equal "the active sheet", other.ActiveSheet.Name, "Desk"
other.ResetCalls
Equal "calls are counted", other.Calls("Application.ResetCalls") + other.CallCount, 2
WScript.Echo "end"

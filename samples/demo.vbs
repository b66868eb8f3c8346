' The macro's side of the conversation, as a script: creates the library's object, hands it the application object,
' shows the dialogs and acts on their answers. In a workbook this is what its macros do.
'
'   cscript demo.vbs WORKBOOK RESULT STEPS RANGE...
'
' STEPS is a list of "project", "symbols", "tape", "look", joined by commas. Each time the tape dialog asks for a
' location, the next RANGE is handed to it; without any, PELLORA_ASK names a program that asks the user.
'
' Prints a line for each call to the library, with what it answered, and "done" at the end.
Option Explicit

Dim app, library, ranges, nextRange, step
Set app = CreateObject("PelloraWorkbook.Application")
app.Open WScript.Arguments(0)
Set library = CreateObject("Pellora.cPellora")
Set library.ExcelApplication = app
Report "ExcelApplication", app.Name
nextRange = 3

For Each step In Split(WScript.Arguments(2), ",")
  Select Case step
    Case "project": NewProject
    Case "symbols": NewSymbols
    Case "tape": Tape
    Case "look": Look
  End Select
Next

library.UnloadfrmMaster
Report "UnloadfrmMaster", "(no result)"
app.Save WScript.Arguments(1)
WScript.Echo "done"

' Chooses the quote fields of a new project.
Sub NewProject()
  Dim fields(9), names, wanted, i, text
  names = Split("AskPrice AskSize BidPrice BidSize ClosePrice HighTick LastPrice LastSize LowTick Volume")
  For i = 0 To 9
    fields(i) = 0
  Next
  wanted = library.CreateNewProject(fields(0), fields(1), fields(2), fields(3), fields(4), fields(5), fields(6), _
    fields(7), fields(8), fields(9))
  For i = 0 To 9
    text = text & " " & names(i) & "=" & fields(i)
  Next
  Report "CreateNewProject", CStr(wanted) & text
End Sub

' Asks for instruments until the user is finished, and puts each below the last one on the quote sheet.
Sub NewSymbols()
  Dim answer, symbol, kind, expiry, strike, side, multiplier, exchange, primary, currencyName, index
  index = -1
  Do
    answer = library.AddNewSymbol(symbol, kind, expiry, strike, side, multiplier, exchange, primary, currencyName, index)
    Report "AddNewSymbol", answer & " " & symbol & "|" & kind & "|" & expiry & "|" & strike & "|" & side & "|" & _
      multiplier & "|" & exchange & "|" & primary & "|" & currencyName & "|" & index
    If answer = 1 Or answer = 4 Then
      AddInstrument Array(symbol, kind, expiry, "", side, multiplier, exchange, primary, currencyName)
    End If
  Loop While answer = 4
End Sub

' Writes the nine contract columns of one instrument into the first row without a ticker below the others.
Sub AddInstrument(contract)
  Dim first, row, i
  Set first = app.Range("TWS_Symbol").Cells(1, 1)
  row = 2
  For i = 2 To 200
    If Len(first.Cells(i, 1).Value) > 0 Then row = i + 1
  Next
  For i = 0 To 8
    ' A multiplier of 0 means that the type has none.
    If CStr(contract(i)) <> "" And Not (i = 5 And CStr(contract(i)) = "0") Then first.Cells(row, i + 1).Value = contract(i)
  Next
End Sub

' Lets the user set up tapes until the dialog is finished, answering its requests for a location.
Sub Tape()
  Dim outcome
  Do
    outcome = library.ShowRefEditInterface
    Report "ShowRefEditInterface", outcome
    If outcome <> "DATABEGINNING" Then Exit Do
    library.RefEditInputs = PickedRange
    Report "RefEditInputs", library.RefEditInputs
  Loop
End Sub

' Shows the dialog once more, as it was left.
Sub Look()
  Report "ShowRefEditInterface", library.ShowRefEditInterface
End Sub

Function PickedRange()
  If WScript.Arguments.Count > 3 Then
    PickedRange = WScript.Arguments(nextRange)
    If nextRange < WScript.Arguments.Count - 1 Then nextRange = nextRange + 1
  Else
    PickedRange = AskedRange
  End If
End Function

' Has a program of its own ask: the stand-in for a spreadsheet program has no input box.
Function AskedRange()
  Dim shell, files, path
  Set shell = CreateObject("WScript.Shell")
  Set files = CreateObject("Scripting.FileSystemObject")
  ' Wine leaves the terminating zero in the text.
  path = Replace(shell.ExpandEnvironmentStrings("%PELLORA_ASK%"), Chr(0), "")
  shell.Run """" & path & """ ""Tape location, for instance Tapes!B3:D22"" answer.txt", 1, True
  AskedRange = ""
  If files.GetFile("answer.txt").Size > 0 Then AskedRange = files.OpenTextFile("answer.txt").ReadAll
End Function

Sub Report(member, answer)
  WScript.Echo member & ": " & answer
End Sub

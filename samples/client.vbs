' The library's dialogs from VBScript:
'
'   cscript client.vbs WORKBOOK [APPLICATION RANGE RESULT]
'
' APPLICATION is the name of the class of the spreadsheet program, "Excel.Application" unless given. RANGE is handed to
' the ticker tape dialog when it asks for a place; without it the user picks one. RESULT is a file for the workbook.
' Prints a line for each step, "done" at the end.
Option Explicit
Const ComponentFailure = &H80040064

Dim app, library, className
If WScript.Arguments.Count = 0 Then
  WScript.Echo "usage: cscript client.vbs WORKBOOK [APPLICATION RANGE RESULT]"
  WScript.Quit 1
End If
className = Argument(1, "Excel.Application")
Set app = CreateObject(className)
If className = "Excel.Application" Then
  app.Visible = True
  app.Workbooks.Open WScript.Arguments(0)
Else
  app.Open WScript.Arguments(0)
End If

' Create the object, hand over the application. Late-bound is the only way here.
Set library = CreateObject("Pellora.cPellora")
Set library.ExcelApplication = app

ChooseQuoteFields
AddInstruments
SetUpTapes

' Let everything go: first the tape dialog, then the object.
library.UnloadfrmMaster
Set library = Nothing
If Argument(3, "") <> "" Then app.Save Argument(3, "")
WScript.Echo "done"

Sub ChooseQuoteFields()
  Dim f(9), i, text
  For i = 0 To 9
    f(i) = 0
  Next
  On Error Resume Next
  If library.CreateNewProject(f(0), f(1), f(2), f(3), f(4), f(5), f(6), f(7), f(8), f(9)) Then
    For i = 0 To 9
      text = text & " " & f(i)
    Next
    WScript.Echo "fields:" & text
  ElseIf Err.Number = 0 Then
    WScript.Echo "fields: cancelled"
  End If
  If Err.Number <> 0 Then Complain
End Sub

' The variables that go in come back filled; the answer is 1 for insert, 4 for insert and ask again, 2 for cancelled.
Sub AddInstruments()
  Dim answer, symbol, kind, expiry, strike, side, multiplier, exchange, primary, currencyCode, index
  index = 0
  On Error Resume Next
  Do
    answer = 2
    answer = library.AddNewSymbol(symbol, kind, expiry, strike, side, multiplier, exchange, primary, currencyCode, _
      index)
    If Err.Number <> 0 Then Complain
    If answer <> 2 Then
      WScript.Echo "instrument: " & symbol & " " & kind & " " & expiry & " " & side & " " & multiplier & " " & _
        exchange & " " & primary & " " & currencyCode
    End If
  Loop While answer = 4
  WScript.Echo "instruments: finished"
End Sub

' The dialog steps aside when a place is to be picked, and goes on where it was when it is shown again.
Sub SetUpTapes()
  Dim outcome, place
  On Error Resume Next
  Do
    outcome = ""
    outcome = library.ShowRefEditInterface
    If Err.Number <> 0 Then Complain
    WScript.Echo "tape: " & outcome
    If outcome <> "DATABEGINNING" Then Exit Do
    place = PickedPlace
    If place <> "" Then library.RefEditInputs = place
    WScript.Echo "place: " & library.RefEditInputs
  Loop
End Sub

Function PickedPlace()
  Dim picked
  PickedPlace = Argument(2, "")
  If PickedPlace <> "" Then Exit Function
  ' Type 8 is a range; cancelled, the answer is False.
  On Error Resume Next
  Set picked = app.InputBox("Where shall the ticker tape begin?", "Ticker tape", , , , , , 8)
  If Err.Number = 0 Then PickedPlace = "'" & Replace(picked.Worksheet.Name, "'", "''") & "'!" & picked.Address
  ' Cancelling is no failure of the caller's.
  Err.Clear
End Function

Sub Complain()
  If Err.Number = ComponentFailure Then
    WScript.Echo "the dialog failed, or another one is open: " & Err.Source
  Else
    WScript.Echo "error " & Err.Number & ": " & Err.Description
  End If
  Err.Clear
End Sub

Function Argument(number, otherwise)
  Argument = otherwise
  If WScript.Arguments.Count > number Then Argument = WScript.Arguments(number)
End Function

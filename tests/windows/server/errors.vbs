' What a script hears when something is refused.
Option Explicit

Sub Check(holds, name)
    If holds Then WScript.Echo "ok " & name Else WScript.Echo "not ok " & name & " (" & Err.Number & " " & Err.Description & ")"
    Err.Clear
End Sub

Dim library, dictionary, text
Set library = CreateObject("Pellora.cPellora.1")
Set dictionary = CreateObject("Scripting.Dictionary")
Check Not library Is Nothing, "the class is created by its versioned name"

On Error Resume Next
text = library.RefEditInputs
Check Err.Number = 91, "RefEditInputs before any dialog is error 91"
text = library.RefEditInputs
Check Err.Source = "Pellora.cPellora", "an error names its source"
text = library.RefEditInputs
Check Err.Description = "Object variable or With block variable not set", "an error has its description"
library.RefEditInputs = "Sheet1!A1"
Check Err.Number = 91, "setting RefEditInputs before any dialog is error 91"

Set library.ExcelApplication = dictionary
Check Err.Number = 13, "an object that is no spreadsheet is a type mismatch"
library.ExcelApplication = "Excel"
Check Err.Number = 13, "a text is no spreadsheet"
Check library.ExcelApplication Is Nothing, "a refused application is not kept"
library.Nowhere
Check Err.Number = 438, "an unknown member is error 438"
library.UnloadfrmMaster
Check Err.Number = 0, "UnloadfrmMaster before any dialog does nothing"

Set library = Nothing
Check Err.Number = 0, "the object is let go"
WScript.Echo "END"


' A host that fails in the middle of a call, and that calls back while a dialog is open. The player (plays.py) ignores
' the errors of the first showing and aborts those of the second.

Const ComponentFailure = -2147221404
Dim library, asked, reentrant, source, description, index, never, text

Class Sheet
  Public Name
End Class

Class Failing
  Public ScreenUpdating
  Public Function Range(address)
  End Function
  Public Function Intersect(one, other)
  End Function
  Public Property Get Columns()
  End Property
  Public Property Get ActiveSheet()
    Set ActiveSheet = New Sheet
  End Property
  Public Property Get ActiveWorkbook()
  End Property
  Public Property Get Worksheets(name)
    If asked = 0 Then CallBack
    asked = asked + 1
    Err.Raise 1004, "Failing", "There are no sheets today"
  End Property
End Class

Sub CallBack()
  Dim answer
  On Error Resume Next
  answer = library.AddNewSymbol(text, never, never, never, never, never, never, never, never, index)
  reentrant = Err.Number
  source = Err.Source
  description = Err.Description
  Err.Clear
End Sub

On Error Resume Next
Set library = CreateObject("Pellora.cPellora")
Set library.ExcelApplication = New Failing
Fails "a script's class whose Worksheets fails is accepted", 0
asked = 0
text = "old"
index = "3"
Equal "with every error ignored the dialog can be closed", library.ShowRefEditInterface, "CLOSE"
Fails "errors of the host do not reach the caller", 0
Check "the library has asked for a worksheet", asked > 0
Equal "a call while a dialog is open is the component's failure", reentrant, ComponentFailure
Equal "its source is the method", source, "Pellora.cPellora.AddNewSymbol"
Equal "its description is the component's", description, "cPellora component failure"
Equal "the refused call leaves a text", text, "old"
Equal "the refused call leaves a variable's type", TypeName(index), "String"
Equal "the refused call leaves an unset variable unset", TypeName(never), "Empty"

library.UnloadfrmMaster
Equal "with the errors aborted the dialog can be closed", library.ShowRefEditInterface, "CLOSE"
Fails "aborted errors do not reach the caller either", 0
Equal "the object can be used afterwards", library.CreateNewProject(0, 0, 0, 0, 0, 0, 0, 0, 0, 0), False
Fails "the next call succeeds", 0
Set library = Nothing
WScript.Echo "end"

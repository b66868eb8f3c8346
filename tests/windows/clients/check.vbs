Option Explicit

Sub Check(name, holds)
  If holds Then
    WScript.Echo "ok " & name
  Else
    WScript.Echo "not ok " & name
  End If
End Sub

Sub Equal(name, found, expected)
  If found = expected Then
    WScript.Echo "ok " & name
  Else
    WScript.Echo "not ok " & name & ": '" & found & "' instead of '" & expected & "'"
  End If
End Sub

' The error of the statement before, and no error afterwards.
Sub Fails(name, number)
  Equal name, Err.Number, number
  Err.Clear
End Sub

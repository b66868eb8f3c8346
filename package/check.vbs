' Says in plain words whether programs of this script engine's bitness find Pellora. The argument names the bitness.
' Ends with 0 when it loads, 1 when it is not registered, 2 when it is registered and does not load. With "engine" for the
' bitness it says nothing and ends with 42: a proof that scripts run here at all.
Option Explicit
Const ProgId = "Pellora.cPellora"
Dim bits, file, audience, library, number, reason
bits = WScript.Arguments(0)
If bits = "engine" Then WScript.Quit 42

file = ""
audience = ""
Look "HKCU\Software\Classes\", "you"
If file = "" Then Look "HKLM\Software\Classes\", "everybody on this computer"

On Error Resume Next
Set library = CreateObject(ProgId)
If Err.Number = 0 Then library.UnloadfrmMaster
number = Err.Number
reason = Err.Description
On Error GoTo 0

If number = 0 And file <> "" Then
  Say "registered for " & audience & ", and it loads. The library is " & file, 0
ElseIf number = 0 Then
  Say "it loads.", 0
ElseIf file = "" Then
  Say "not registered. Run install.cmd to install it.", 1
ElseIf Not CreateObject("Scripting.FileSystemObject").FileExists(file) Then
  Say "registered for " & audience & ", but its file is gone: " & file & ". Run install.cmd again.", 2
Else
  Say "registered for " & audience & ", but it does not load (" & number & " " & reason & "). The library is " & _
    file & ". If this window runs as an administrator, open an ordinary one: programs of administrators do not see " & _
    "what a user has installed. Otherwise run install.cmd again.", 2
End If

' Fills `file` and `audience` when the class is registered there.
Sub Look(classes, whose)
  Dim classId
  classId = Value(classes & ProgId & "\CLSID\")
  If classId = "" Then Exit Sub
  file = Value(classes & "CLSID\" & classId & "\InprocServer32\")
  audience = whose
End Sub

' The default value of a key, or nothing.
Function Value(key)
  Value = ""
  On Error Resume Next
  Value = CreateObject("WScript.Shell").RegRead(key)
  On Error GoTo 0
End Function

Sub Say(text, code)
  WScript.Echo bits & ": " & text
  WScript.Quit code
End Sub

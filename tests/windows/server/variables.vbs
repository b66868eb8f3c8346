' A script's variables of every kind through the by-reference arguments. Whoever runs this closes the dialogs: every
' answer is "cancelled".
Option Explicit

Sub Check(holds, name)
    If holds Then WScript.Echo "ok " & name Else WScript.Echo "not ok " & name
End Sub

Dim library
Set library = CreateObject("Pellora.cPellora")

Dim symbol, typeSymbol, expiry, strike, right_, multiplier, exchange, primary, currency_, listIndex
symbol = "old": typeSymbol = "old": expiry = "old": right_ = "old"
exchange = "old": primary = "old": currency_ = "old"
strike = 9: multiplier = "9": listIndex = CLng(2)
Dim outcome
outcome = library.AddNewSymbol(symbol, typeSymbol, expiry, strike, right_, multiplier, exchange, primary, currency_, listIndex)
Check outcome = 2, "a script that cancels AddNewSymbol hears 2"
Check symbol & typeSymbol & expiry & right_ & exchange & primary & currency_ = "", "all texts come back empty"
Check VarType(symbol) = vbString, "an emptied text is a text"
Check strike = 0 And multiplier = 0, "both numbers come back as 0"
Check VarType(multiplier) = vbDouble, "a variable takes the member's type"
Check listIndex = 2, "the type to preselect is unchanged"

Dim unset(9)
outcome = library.AddNewSymbol(unset(0), unset(1), unset(2), unset(3), unset(4), unset(5), unset(6), unset(7), unset(8), unset(9))
Check outcome = 2 And VarType(unset(0)) = vbString And VarType(unset(3)) = vbDouble, "elements of an array are written"

outcome = library.AddNewSymbol("a", "b", "c", 1, "d", 2, "e", "f", "g", 0)
Check outcome = 2, "literals are accepted"

Dim ask, volume
ask = 5: volume = -1
Dim confirmed
confirmed = library.CreateNewProject(ask, 0, 0, 0, 0, 0, 0, 0, 0, volume)
Check VarType(confirmed) = vbBoolean And Not confirmed, "a cancelled CreateNewProject answers False"
Check ask = 5 And volume = -1, "a cancelled CreateNewProject changes nothing"

On Error Resume Next
strike = "no number": symbol = "old"
outcome = library.AddNewSymbol(symbol, "", "", strike, "", 0, "", "", "", 0)
Check Err.Number = 13, "what does not convert is a type mismatch"
Check symbol = "old" And strike = "no number", "a type mismatch changes nothing"
Err.Clear

outcome = library.AddNewSymbol(symbol)
Check Err.Number = 450 Or Err.Number = 449, "too few arguments are refused"
Err.Clear
On Error Goto 0

WScript.Echo "END"

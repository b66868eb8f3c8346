
' By-reference arguments, as variables of a script get them back. Each call's dialog is answered by the player
' (references.py), in the same order.

Const Junk = 7
Dim library, wanted, fields(9), i
Set library = CreateObject("Pellora.cPellora")

Sub FillWithJunk()
  For i = 0 To 9
    fields(i) = CInt(Junk)
  Next
End Sub

Function Joined()
  Joined = ""
  For i = 0 To 9
    Joined = Joined & fields(i) & " "
  Next
End Function

Function NewProject()
  NewProject = library.CreateNewProject(fields(0), fields(1), fields(2), fields(3), fields(4), fields(5), fields(6), _
    fields(7), fields(8), fields(9))
End Function

FillWithJunk
wanted = NewProject
Equal "CreateNewProject cancelled answers False", wanted, False
Equal "CreateNewProject cancelled leaves the arguments", Joined, "7 7 7 7 7 7 7 7 7 7 "
wanted = NewProject
Equal "CreateNewProject closed by its close box answers False", wanted, False
Equal "CreateNewProject closed by its close box leaves the arguments", Joined, "7 7 7 7 7 7 7 7 7 7 "
wanted = NewProject
Equal "CreateNewProject with only Volume ticked answers True", wanted, True
Equal "CreateNewProject with only Volume ticked sets Volume alone", Joined, "0 0 0 0 0 0 0 0 0 1 "
Equal "a field comes back as a 16-bit integer", TypeName(fields(9)), "Integer"
For i = 0 To 9
  fields(i) = Empty
Next
wanted = NewProject
Equal "Check all sets every field, in variables that held nothing", Joined, "1 1 1 1 1 1 1 1 1 1 "
wanted = library.CreateNewProject(0, 0, 0, 0, 0, 0, 0, 0, 0, 0)
Equal "literals are accepted where nobody wants the answer", wanted, True

Dim answer, symbol, kind, expiry, strike, side, multiplier, exchange, primary, currencyName, index
Sub NewSymbol(preselected)
  symbol = "junk"
  kind = "junk"
  expiry = "junk"
  strike = 1.5
  side = "junk"
  multiplier = 2.5
  exchange = "junk"
  primary = "junk"
  currencyName = "junk"
  index = preselected
  answer = library.AddNewSymbol(symbol, kind, expiry, strike, side, multiplier, exchange, primary, currencyName, index)
End Sub

Function Contract()
  Contract = symbol & "|" & kind & "|" & expiry & "|" & strike & "|" & side & "|" & multiplier & "|" & exchange & _
    "|" & primary & "|" & currencyName & "|" & index
End Function

NewSymbol 3
Equal "AddNewSymbol cancelled answers 2", answer, 2
Equal "AddNewSymbol cancelled clears all but the type's index", Contract, "|||0||0||||3"
NewSymbol CInt(-1)
Equal "AddNewSymbol closed by its close box answers 2", answer, 2
Equal "AddNewSymbol closed by its close box clears all but the type's index", Contract, "|||0||0||||-1"
NewSymbol 0
Equal "Insert & new answers 4", answer, 4
Equal "a stock has no expiry, right or multiplier", Contract, "ABC|STK||0||0|SMART|NYSE|USD|0"
NewSymbol 1
Equal "Insert answers 1", answer, 1
Equal "an option's strike stays 0", Contract, "OPQ|OPT|203012|0|PUT|100|SMART||USD|1"
Equal "the multiplier comes back as a double", TypeName(multiplier), "Double"
Equal "the answer is a 16-bit integer", TypeName(answer), "Integer"
WScript.Echo "end"

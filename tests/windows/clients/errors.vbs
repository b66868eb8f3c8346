
' What a script sees of refusals and of calls that come too early.

Const NoSuchMember = 438, WrongArguments = 450, ArgumentMissing = 449, TypeMismatch = 13, NoObject = 91
Dim library, answer
On Error Resume Next
Set library = CreateObject("Pellora.cPellora")

answer = library.RefEditInputs
Check "reading RefEditInputs before any showing fails", Err.Number <> 0
Fails "it fails because there is no dialog", NoObject
library.RefEditInputs = "Sheet1!B3"
Fails "writing RefEditInputs before any showing fails the same", NoObject
library.UnloadfrmMaster
Fails "UnloadfrmMaster before any showing does nothing", 0
library.UnloadfrmMaster
Fails "UnloadfrmMaster a second time does nothing", 0

library.NoSuchThing
Fails "an unknown member is not found", NoSuchMember
library.CreateNewProject 1, 2
Fails "a call with too few arguments is refused", ArgumentMissing
answer = library.ShowRefEditInterface(1)
Fails "a call with too many arguments is refused", WrongArguments

Dim symbol, index
index = "no number"
answer = library.AddNewSymbol(symbol, symbol, symbol, symbol, symbol, symbol, symbol, symbol, symbol, index)
Fails "an argument that is no number is a type mismatch", TypeMismatch
Equal "the refused argument is untouched", index, "no number"
index = 40000
answer = library.AddNewSymbol(symbol, symbol, symbol, symbol, symbol, symbol, symbol, symbol, symbol, index)
Check "a number beyond 16 bits is refused", Err.Number <> 0
Err.Clear

' Names are found whatever their case, as scripts write them.
library.unloadFRMmaster
Fails "members are found whatever their letter case", 0

Dim second
Set second = CreateObject("Pellora.cPellora")
Set library = Nothing
second.UnloadfrmMaster
Fails "a second object outlives the first", 0
WScript.Echo "end"

Attribute VB_Name = "PelloraDialogs"
Option Explicit

' The dialogs of a quote workbook, for its macros. The same module serves in Excel (File, Import File...) and in
' LibreOffice (below a line "Option VBASupport 1", in the workbook or in a library of "My Macros"). Call, from buttons
' or from macros of your own:
'
'   ChooseQuoteFields    the quote fields of a new project
'   AddInstruments       instruments, each written below the last one on the quote sheet
'   SetUpTapes           ticker tapes, their places picked with the mouse when wanted
'   ReleasePellora       lets the library go; Workbook_BeforeClose is the place to call it
'
' Everything here is late-bound: the workbook opens on every machine, also where the library is not installed. Excel
' knows no constant LibreOffice, so it leaves out what is between #If LibreOffice and #End If; LibreOffice takes no
' notice of these two lines. In Excel, with a reference to "Vantix user interface library" (Tools, References...) the
' same is early-bound, with completion while you type:
'
'   Global mLibrary As Pellora.cPellora
'   Set mLibrary = New Pellora.cPellora
'
' Then every by-reference argument must be a variable of exactly the type used below.

' Global: of a library of "My Macros", LibreOffice forgets all other variables when a macro has ended.
Global mLibrary As Object

' What gives LibreOffice's application object. That one knows its workbook only as long as this is kept.
Global mGlobals As Object

' Whether a range is being picked in LibreOffice, and where it ended.
Global mPicking As Boolean
Global mPickedRange As String

' The library's one object, made on first use and told which program it works in. Each time, because LibreOffice's
' application object belongs to a workbook, and the one of the call before may be closed.
Private Function Library() As Object
    If mLibrary Is Nothing Then Set mLibrary = CreateObject("Pellora.cPellora")
    Set mLibrary.ExcelApplication = Host()
    Set Library = mLibrary
End Function

' The application object. LibreOffice knows it by name only inside a workbook: a library of "My Macros" has to ask.
Private Function Host() As Object
    On Error Resume Next
    Set Host = Application
    On Error GoTo 0
#If LibreOffice Then
    Set mGlobals = CreateUnoServiceWithArguments("ooo.vba.excel.Globals", Array(ThisComponent))
    Set Host = mGlobals.Excel
#End If
End Function

' Lets the user choose, and says what was chosen. A workbook would lay out its quote sheet here.
Public Sub ChooseQuoteFields()
    Dim wanted(0 To 9) As Integer
    On Error GoTo Failed
    If Library.CreateNewProject(wanted(0), wanted(1), wanted(2), wanted(3), wanted(4), wanted(5), wanted(6), _
            wanted(7), wanted(8), wanted(9)) Then
        MsgBox "Chosen: " & ChosenFields(wanted), vbInformation, "Quote workbook"
    End If
    Exit Sub
Failed:
    MsgBox FailureText(Err.Number, Err.Source, Err.Description), vbExclamation, "Quote workbook"
End Sub

' Asks for instruments until the user is finished: 1 is insert, 4 insert and ask again, 2 cancelled.
Public Sub AddInstruments()
    Dim answer As Integer, symbol As String, typeSymbol As String, expiry As String, strike As Double
    Dim putOrCall As String, multiplier As Double, exchange As String, primaryExchange As String
    Dim currencyCode As String, typeIndex As Integer
    On Error GoTo Failed
    Do
        ' What goes in as typeIndex is the type the dialog comes up with: the one of the instrument before.
        answer = Library.AddNewSymbol(symbol, typeSymbol, expiry, strike, putOrCall, multiplier, exchange, _
            primaryExchange, currencyCode, typeIndex)
        If answer = 1 Or answer = 4 Then
            WriteInstrument ContractCells(symbol, typeSymbol, expiry, strike, putOrCall, multiplier, exchange, _
                primaryExchange, currencyCode)
        End If
    Loop While answer = 4
    Exit Sub
Failed:
    MsgBox FailureText(Err.Number, Err.Source, Err.Description), vbExclamation, "Quote workbook"
End Sub

' Shows the ticker tape dialog until it is finished. When it wants a place to be picked it steps aside and answers
' "DATABEGINNING"; it keeps all that was entered, and goes on when it is shown again.
Public Sub SetUpTapes()
    Dim place As String
    On Error GoTo Failed
    If mPicking Then
        MsgBox "Pick the place of the tape first, or press Esc.", vbInformation, "Quote workbook"
        Exit Sub
    End If
    Do While Library.ShowRefEditInterface() = "DATABEGINNING"
        place = PickedPlace()
        ' The library may have been let go meanwhile.
        If mLibrary Is Nothing Then Exit Do
        If place <> "" Then Library.RefEditInputs = place
    Loop
    Exit Sub
Failed:
    mPicking = False
    MsgBox FailureText(Err.Number, Err.Source, Err.Description), vbExclamation, "Quote workbook"
End Sub

' Lets the ticker tape dialog and the library go, and ends the picking of a place. The next call starts anew.
Public Sub ReleasePellora()
    On Error Resume Next
    mPicking = False
    If Not mLibrary Is Nothing Then mLibrary.UnloadfrmMaster
    Set mLibrary = Nothing
    Set mGlobals = Nothing
End Sub

' The range that the user picks in the workbook, as the dialog wants it; nothing when the user cancels.
Private Function PickedPlace() As String
    Dim picked As Object
#If LibreOffice Then
    PickedPlace = PlaceOfRange(PickedRange("Ticker tape"))
    Exit Function
#End If
    ' Cancelled, InputBox answers False, which is no object.
    On Error Resume Next
    Set picked = Host().InputBox("Where shall the ticker tape begin?", "Ticker tape", Type:=8)
    On Error GoTo 0
    If Not picked Is Nothing Then PickedPlace = SheetAddress(picked.Worksheet.Name, picked.Address)
End Function

' LibreOffice's application object has no InputBox; the window of a workbook lets the user pick a range instead, and
' tells a listener.
#If LibreOffice Then
Private Function PickedRange(title As String) As String
    Dim window As Object, listener As Object
    Set window = ThisComponent.CurrentController
    Set listener = CreateUnoListener("RangePicking_", "com.sun.star.sheet.XRangeSelectionListener")
    mPickedRange = ""
    mPicking = True
    window.addRangeSelectionListener listener
    window.startRangeSelection Array(Named("Title", title), Named("CloseOnMouseRelease", True))
    ' The listener's routines below are called meanwhile, but not by every window that is closed.
    Do While mPicking
        Wait 20
        If Not IsOpen(window) Then mPicking = False
    Loop
    On Error Resume Next
    window.removeRangeSelectionListener listener
    window.abortRangeSelection
    PickedRange = mPickedRange
End Function

' Whether the window of a workbook still shows it.
Private Function IsOpen(window As Object) As Boolean
    On Error Resume Next
    IsOpen = Not IsNull(window.Model)
End Function

Private Function Named(name As String, value As Variant) As Object
    Set Named = CreateUnoStruct("com.sun.star.beans.PropertyValue")
    Named.Name = name
    Named.Value = value
End Function

Public Sub RangePicking_done(outcome As Object)
    mPickedRange = outcome.RangeDescriptor
    mPicking = False
End Sub

Public Sub RangePicking_aborted(outcome As Object)
    mPicking = False
End Sub

' The window was closed while the user was to pick.
Public Sub RangePicking_disposing(source As Object)
    mPicking = False
End Sub
#End If

' The place of a range as LibreOffice writes it, such as $Desk.$B$3:$D$22 or $'My Sheet'.$B$3.
Public Function PlaceOfRange(range As String) As String
    Dim dot As Integer, sheetName As String
    dot = InStrRev(range, ".")
    If dot = 0 Then Exit Function
    sheetName = Replace(Left(range, dot - 1), "$", "", 1, 1)
    If Left(sheetName, 1) = "'" Then sheetName = Replace(Mid(sheetName, 2, Len(sheetName) - 2), "''", "'")
    PlaceOfRange = SheetAddress(sheetName, Mid(range, dot + 1))
End Function

' Writes the nine cells of a contract below the last instrument of the active workbook.
Public Sub WriteInstrument(contract As Variant)
    Dim first As Object, row As Long
    Set first = Host().Range("TWS_Symbol").Cells(1, 1)
    row = first.Worksheet.Cells(first.Worksheet.Rows.Count, first.Column).End(-4162).Row + 1
    first.Worksheet.Cells(row, first.Column).Resize(1, 9).Value = contract
End Sub

' The cells of a contract in the order of the quote sheet. A strike or multiplier of 0 means that there is none.
Public Function ContractCells(symbol As String, typeSymbol As String, expiry As String, strike As Double, _
        putOrCall As String, multiplier As Double, exchange As String, primaryExchange As String, _
        currencyCode As String) As Variant
    ContractCells = Array(symbol, typeSymbol, expiry, NumberOrNothing(strike), putOrCall, _
        NumberOrNothing(multiplier), exchange, primaryExchange, currencyCode)
End Function

Public Function NumberOrNothing(number As Double) As Variant
    If number = 0 Then NumberOrNothing = Empty Else NumberOrNothing = number
End Function

' The names of the fields whose flag is set, in the order of CreateNewProject's arguments.
Public Function ChosenFields(wanted As Variant) As String
    Dim names As Variant, i As Integer
    names = Array("ask price", "ask size", "bid price", "bid size", "close", "high", "last price", "last size", _
        "low", "volume")
    For i = 0 To 9
        If wanted(i) = 1 Then ChosenFields = ChosenFields & IIf(ChosenFields = "", "", ", ") & names(i)
    Next i
End Function

' A place with its sheet. Quotes are needed around a name that is more than letters, digits and underlines.
Public Function SheetAddress(sheetName As String, address As String) As String
    Dim i As Integer, plain As Boolean
    plain = True
    For i = 1 To Len(sheetName)
        If InStr("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_", UCase(Mid(sheetName, i, 1))) = 0 Then plain = False
    Next i
    If plain Then
        SheetAddress = sheetName & "!" & address
    Else
        SheetAddress = "'" & Replace(sheetName, "'", "''") & "'!" & address
    End If
End Function

' What to tell the user when a call has failed.
Public Function FailureText(ByVal number As Long, ByVal source As String, ByVal description As String) As String
#If LibreOffice Then
    ' Its Basic has one number for most failures of a library, which keeps them as they were.
    If number = 440 And Not mLibrary Is Nothing Then
        If mLibrary.ErrNumber <> 0 Then
            number = mLibrary.ErrNumber
            source = mLibrary.ErrSource
            description = mLibrary.ErrDescription
        End If
    End If
#End If
    Select Case number
        Case 429
            FailureText = "The dialogs are not installed for this Excel. Run install.cmd, then check.cmd."
        Case 323
            FailureText = "The dialogs are not installed for this LibreOffice. Add pellora.oxt and start it again."
        Case -2147221404
            FailureText = "The dialog could not do its work, or another one is still open. (" & source & ")"
        Case Else
            FailureText = description & " (" & number & ", " & source & ")"
    End Select
End Function

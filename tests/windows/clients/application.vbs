
' Whom the library takes for a spreadsheet application, and whom not.

' Answers what the library asks for, and is nobody's program.
Class Everything
  Public ScreenUpdating
  Public Function Range(address)
  End Function
  Public Function Intersect(one, other)
  End Function
  Public Property Get Columns()
  End Property
  Public Property Get ActiveSheet()
  End Property
  Public Property Get ActiveWorkbook()
  End Property
  Public Property Get Worksheets()
  End Property
End Class

' The same without `Intersect`.
Class AlmostEverything
  Public ScreenUpdating
  Public Function Range(address)
  End Function
  Public Property Get Columns()
  End Property
  Public Property Get ActiveSheet()
  End Property
  Public Property Get ActiveWorkbook()
  End Property
  Public Property Get Worksheets()
  End Property
End Class

Class Nobody
  Public Name
End Class

Const TypeMismatch = 13
Dim library, application, other
On Error Resume Next
Set library = CreateObject("Pellora.cPellora")
Fails "the class can be created by its name", 0

Set application = New Everything
Set library.ExcelApplication = application
Fails "a script's own class that answers the members is accepted", 0
Check "ExcelApplication answers the object it was given", library.ExcelApplication Is application
Check "m_ObjExcelApplication is the same field", library.m_ObjExcelApplication Is application

Set other = New Everything
Set library.m_ObjExcelApplication = other
Fails "the field can be set by its own name", 0
Check "ExcelApplication then answers the new object", library.ExcelApplication Is other

Set library.ExcelApplication = New AlmostEverything
Fails "a class without Intersect is a type mismatch", TypeMismatch
Set library.ExcelApplication = New Nobody
Fails "a class with other members is a type mismatch", TypeMismatch
Set library.ExcelApplication = CreateObject("Scripting.Dictionary")
Fails "another library's object is a type mismatch", TypeMismatch
library.ExcelApplication = 5
Fails "a number is a type mismatch", TypeMismatch
library.ExcelApplication = "application"
Fails "a text is a type mismatch", TypeMismatch
library.ExcelApplication = Null
Fails "Null is a type mismatch", TypeMismatch
library.ExcelApplication = Array(1, 2)
Fails "an array is a type mismatch", TypeMismatch
Check "after a refusal the accepted object stays", library.ExcelApplication Is other

Set library.ExcelApplication = Nothing
Fails "Nothing is accepted", 0
Check "Nothing clears the field", library.ExcelApplication Is Nothing
Set library.m_ObjExcelApplication = other
Set library.m_ObjExcelApplication = Nothing
Fails "Nothing is accepted under the field's own name", 0
Check "it clears the field under either name", library.ExcelApplication Is Nothing

Set application = CreateObject("PelloraWorkbook.Application")
Fails "the embedded workbook's application can be created", 0
Set library.ExcelApplication = application
Fails "the embedded workbook's application is accepted", 0
Check "it says that it is a stand-in", InStr(application.Name, "embedded workbook") > 0
WScript.Echo "end"

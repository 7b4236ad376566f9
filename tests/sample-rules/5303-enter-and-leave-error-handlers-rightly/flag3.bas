Attribute VB_Name = "Flag3"
Option Explicit

Public Function Save(ByVal book As Object) As Boolean
    On Error GoTo EH
    book.Save
    Save = True
QH:
    book.Close
    Exit Function
EH:
    PrintError "Save"
    GoTo QH
End Function

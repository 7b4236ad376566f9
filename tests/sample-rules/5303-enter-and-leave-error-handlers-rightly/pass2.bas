Attribute VB_Name = "Pass2"
Option Explicit

Public Function Save(ByVal book As Object) As Boolean
    On Error GoTo EH
    book.Save
    Save = True
QH:
    Set book = Nothing
    Exit Function
EH:
    PrintError "Save"
    GoTo QH
End Function

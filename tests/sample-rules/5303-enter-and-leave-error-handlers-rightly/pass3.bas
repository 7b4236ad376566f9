Attribute VB_Name = "Pass3"
Option Explicit

Public Function Find(ByVal book As Object, ByRef index As Long) As Boolean
    On Error GoTo EH
    index = book.Find("Total")
    Find = True
    Exit Function
QH:
    index = -1
    Exit Function
EH:
    PrintError "Find"
    GoTo QH
End Function

Attribute VB_Name = "Pass"
Option Explicit

Public Sub Save(ByVal book As Object)
    On Error GoTo ErrHandler
    book.Save
    Exit Sub
ErrHandler:
    book.Close
End Sub

Public Function IsOpen(ByVal book As Object) As Boolean
    On Error GoTo Failed
    IsOpen = book.Visible Or True
Failed:
End Function

Public Sub Leave(ByVal book As Object)
    On Error GoTo Done
    book.Leave
Done:
End Sub

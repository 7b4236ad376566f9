Attribute VB_Name = "Pass"
Option Explicit

Public Sub Save(ByVal book As Object)
    On Error GoTo ErrHandler
10: book.Save
    Exit Sub
ErrHandler:
    MsgBox Err.Description
End Sub

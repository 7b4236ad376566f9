Attribute VB_Name = "Flag"
Option Explicit

Public Sub Save(ByVal book As Object)
    On Error GoTo ErrHandler
    book.Save
    Exit Sub
ErrHandler:
End Sub

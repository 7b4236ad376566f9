Attribute VB_Name = "Flag"
Option Explicit

Public Sub Save(ByVal book As Object)
    book.Save
    Exit Sub
ErrHandler:
    MsgBox Err.Description
End Sub

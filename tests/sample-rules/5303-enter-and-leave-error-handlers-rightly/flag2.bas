Attribute VB_Name = "Flag2"
Option Explicit

Public Sub Save(ByVal book As Object)
    On Error GoTo ErrHandler
Again:
    book.Save
    Exit Sub
ErrHandler:
    book.Unlock
    GoTo Again
End Sub

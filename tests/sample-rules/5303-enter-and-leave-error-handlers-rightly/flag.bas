Attribute VB_Name = "Flag"
Option Explicit

Public Sub Save(ByVal book As Object)
    On Error GoTo Failed
    book.Save
Failed:
    MsgBox "Could not save: " & Err.Description
End Sub

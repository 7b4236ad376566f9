Attribute VB_Name = "Pass"
Option Explicit

Public Sub Save(ByVal book As Object)
    On Error GoTo Failed
Again:
    book.Save
    If book.Changed Then GoTo Again
Done:
    book.Close
    Exit Sub
Failed:
    MsgBox "Could not save: " & Err.Description
    Resume Done
End Sub

Public Sub Finish(ByVal book As Object)
    On Error GoTo Out
    book.Save
Out:
    book.Close
End Sub

Option Explicit

Public Sub Delete()
    MsgBox "Löschen"
End Sub

Option Explicit

Public Sub Work()
    due = CDate(text)
    MsgBox "CVDate(x)"
End Sub

Option Explicit

Public Sub Save()
    On Local Error GoTo Failed
    Failed:
    Beep
End Sub

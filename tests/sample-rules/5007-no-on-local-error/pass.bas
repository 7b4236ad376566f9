Option Explicit

Public Sub Save()
    On Error GoTo Failed
    Failed:
    localError = 1
End Sub

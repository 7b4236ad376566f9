Option Explicit

Public Sub Dispatch()
    On Error GoTo Failed
    On Local Error GoTo Failed
    Select Case n
    Case 1: Beep
    End Select
    Failed:
End Sub

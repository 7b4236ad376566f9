Option Explicit

Public Sub ReadAll()
    On Error GoTo Failed
    Exit Sub
    Failed:
    If MsgBox(path, vbRetryCancel) = vbRetry Then Resume
    If Ask(path) = vbRetry Then
        Resume
    End If
    Resume Next
    Resume Done
    Done:
    timer.Resume
End Sub

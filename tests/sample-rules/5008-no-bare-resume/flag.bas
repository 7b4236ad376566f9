Option Explicit

Public Sub ReadAll(ByVal path As String)
    On Error GoTo Failed
    Open path For Input As #n
    Exit Sub
    Failed:
    If Err.Number = 70 Then Resume
    MsgBox Err.Description
    Resume
    Resume 0
End Sub

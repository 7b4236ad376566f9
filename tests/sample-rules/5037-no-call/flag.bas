Option Explicit

Public Sub Start()
    Call Finish(1)
    If n = 0 Then Call Finish(2)
End Sub

Option Explicit

Public Sub Wait()
    For i = 1 To 100
    DoEvents
    Next
    If busy Then DoEvents
End Sub

Option Explicit

Public Sub Check(ByVal n As Long)
    Error 5
    If n < 0 Then Error 1001
End Sub

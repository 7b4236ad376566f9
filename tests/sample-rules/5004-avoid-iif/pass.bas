Option Explicit

Public Sub ShowShare(ByVal n As Long)
    If n = 0 Then
    share = 0
    Else
    share = 100 / n
    End If
    MyIIf (1)
End Sub

Option Explicit

Public Sub ShowShare(ByVal n As Long)
    Dim share As Double
    share = IIf(n = 0, 0, 100 / n)
    MsgBox VBA.IIf(n = 0, 1, 2)
End Sub

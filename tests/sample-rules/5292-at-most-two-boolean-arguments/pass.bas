Option Explicit

Public Sub Draw(ByVal a As Boolean, ByVal b As Boolean, ByVal c As Long)
End Sub

Option Explicit

Public Sub Draw(ByVal a As Boolean, ByVal b As Boolean, Optional ByVal c As Boolean = True)
End Sub

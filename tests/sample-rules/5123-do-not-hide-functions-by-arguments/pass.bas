Option Explicit

Public Sub Draw(ByVal leftEdge As Long, ByVal text As String)
End Sub

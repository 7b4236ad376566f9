Option Explicit

Public Sub Draw(ByVal q As String)
End Sub

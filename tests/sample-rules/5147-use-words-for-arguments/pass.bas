Option Explicit

Public Sub Draw(ByVal x As Long, ByVal y As Long, ByVal text As String)
End Sub

Option Explicit

Public Sub Draw(ByVal Left As Long, ByVal format As String)
End Sub

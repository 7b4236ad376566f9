Option Explicit

Public Sub DrawRow()
End Sub

Private Sub dr()
End Sub

Option Explicit

Public Sub Add(amount, ByVal text As String)
End Sub

Option Explicit

Public Sub SaveOrder()
End Sub

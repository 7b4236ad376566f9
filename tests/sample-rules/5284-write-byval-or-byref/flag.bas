Option Explicit

Public Sub Add(amount As Currency)
End Sub

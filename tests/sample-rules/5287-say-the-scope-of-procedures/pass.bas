Option Explicit

Public Sub Work()
End Sub

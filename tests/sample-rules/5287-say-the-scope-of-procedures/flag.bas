Option Explicit

Sub Work()
End Sub

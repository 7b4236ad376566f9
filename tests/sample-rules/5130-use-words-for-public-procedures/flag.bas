Option Explicit

Public Sub dr()
End Sub

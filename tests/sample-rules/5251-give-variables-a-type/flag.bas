Option Explicit
Private cache

Public Sub Work()
    Dim i
    Dim names()
End Sub

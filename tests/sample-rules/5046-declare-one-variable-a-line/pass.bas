Option Explicit

Public Sub Work()
    Dim a As Long
    Dim grid(1, 2) As Long
End Sub

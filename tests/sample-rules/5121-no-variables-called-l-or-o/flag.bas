Option Explicit

Public Sub Work()
    Dim l As Long
    Dim O As Object
    l = 1
End Sub

Option Explicit

Public Sub Work()
    Dim length As Long
    Dim o As Object
    Dim i As Long
End Sub

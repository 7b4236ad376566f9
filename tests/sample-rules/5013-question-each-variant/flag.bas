Option Explicit
Private cache As Variant

Public Sub Work(ByVal value As Variant)
    Dim item As Variant
End Sub

Option Explicit

Public Sub Work(ParamArray values() As Variant)
    Dim item As String
    item = "As Variant"
End Sub

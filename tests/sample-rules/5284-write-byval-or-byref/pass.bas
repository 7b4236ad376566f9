Option Explicit

Public Sub Add(ByVal amount As Currency, ByRef total As Currency, ParamArray more() As Variant)
End Sub

Private Sub Form_Unload(Cancel As Integer)
End Sub

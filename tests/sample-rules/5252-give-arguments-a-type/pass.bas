Option Explicit

Public Sub Add(ByVal amount As Currency, text$, v As Variant, ParamArray more())
End Sub

Option Explicit
Private total As Currency

Public Sub Add(ByVal amount As Currency)
    Dim subtotal As Currency
    subtotal = amount
    total = total + subtotal
End Sub

Option Explicit
Private total As Currency

Public Sub Add(ByVal amount As Currency)
    Dim Total As Currency
    total = total + amount
End Sub

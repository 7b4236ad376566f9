' Totals of the month.
  Option Explicit ' always
Private total As Currency

Public Sub Add(ByVal amount As Currency)
    total = total + amount
End Sub

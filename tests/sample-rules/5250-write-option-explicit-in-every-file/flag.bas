' Totals of the month.
Private total As Currency

Public Sub Add(ByVal amount As Currency)
    totl = total + amount
End Sub

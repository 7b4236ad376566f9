Option Explicit
Private total As Currency

Public Sub SetTotal(ByVal total As Currency)
    total = total
End Sub

Option Explicit

Public Sub CheckTotals(ByVal total As Currency)
    If total < 0 Then Stop
    Stop
End Sub

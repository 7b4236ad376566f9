Option Explicit

' Never sets its result: a Sub, as another rule says.
Public Function Work(ByVal n As Long)
    Totals.Add n
    Totals.Work n
End Function

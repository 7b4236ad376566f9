Option Explicit

Public Function Total()
    Total = 1
End Function

Property Get Count()
    Count = 1
End Property

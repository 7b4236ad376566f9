Attribute VB_Name = "Pass"
Option Explicit

Public Function IsWeekend(ByVal day As Long) As Boolean
    If day = 1 Or day = 7 Or (day And 8) Then IsWeekend = True
End Function

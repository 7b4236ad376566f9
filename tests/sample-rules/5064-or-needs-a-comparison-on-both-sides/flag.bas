Attribute VB_Name = "Flag"
Option Explicit

Public Function IsWeekend(ByVal day As Long) As Boolean
    If day = 1 Or 7 Then IsWeekend = True
End Function

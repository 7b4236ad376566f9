Attribute VB_Name = "Pass"
Option Explicit

Public Function SignOf(ByVal number As Double) As String
    SignOf = IIf(number > 0, "+", "") & IIf(number < 0, "-", "")
End Function

Attribute VB_Name = "Pass"
Option Explicit

Public Function Fee(ByVal zone As Long) As Currency
    Select Case True
        Case zone = 1 Or zone = 2
            Fee = 5
        Case Else
            Fee = 9
    End Select
End Function

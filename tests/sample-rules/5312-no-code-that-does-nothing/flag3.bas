Attribute VB_Name = "Flag3"
Option Explicit

Public Function Fee(ByVal zone As Long) As Currency
    Select Case zone
        Case 1
            Fee = 5
        Case 2
            Fee = 7
        Case 1
            Fee = 9
        Case Else
            Fee = 0
    End Select
End Function

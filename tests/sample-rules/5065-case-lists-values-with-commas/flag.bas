Attribute VB_Name = "Flag"
Option Explicit

Public Function Fee(ByVal zone As Long) As Currency
    Select Case zone
        Case 1 Or 2
            Fee = 5
        Case Else
            Fee = 9
    End Select
End Function

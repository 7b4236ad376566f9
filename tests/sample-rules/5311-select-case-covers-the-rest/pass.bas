Attribute VB_Name = "Pass"
Option Explicit

Public Function Fee(ByVal zone As Long) As Currency
    Select Case zone
        Case 1
            Fee = 5
        Case Else: Err.Raise vbObjectError + 1, , "No zone."
    End Select
End Function

Attribute VB_Name = "Pass"
Option Explicit

' The number of items.
Public Function Total(ByVal items As Collection) As Long
    Total = items.Count
End Function

Private Sub Helper()
End Sub

Attribute VB_Name = "Pass"
Option Explicit

Public Function IsZero(ByVal number As Long) As Boolean
    IsZero = (number = 0)
End Function

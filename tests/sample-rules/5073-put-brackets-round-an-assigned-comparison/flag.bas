Attribute VB_Name = "Flag"
Option Explicit

Public Function IsZero(ByVal number As Long) As Boolean
    IsZero = number = 0
End Function

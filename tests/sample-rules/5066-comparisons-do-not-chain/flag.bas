Attribute VB_Name = "Flag"
Option Explicit

Public Function IsChild(ByVal age As Long) As Boolean
    If 0 <= age < 14 Then IsChild = True
End Function

Attribute VB_Name = "Flag"
Option Explicit

Public Function IsOld(ByVal age As Long) As Boolean
    If age > 90 Then IsOld = True Else IsOld = False
End Function

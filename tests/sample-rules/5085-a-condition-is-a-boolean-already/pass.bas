Attribute VB_Name = "Pass"
Option Explicit

Public Function IsOld(ByVal age As Long, ByRef isYoung As Boolean) As Boolean
    If age > 90 Then IsOld = True Else isYoung = False
End Function

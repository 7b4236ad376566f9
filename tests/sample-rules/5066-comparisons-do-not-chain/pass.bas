Attribute VB_Name = "Pass"
Option Explicit

Public Function IsChild(ByVal age As Long) As Boolean
    If 0 <= age And age < 14 And age <> 13 Then IsChild = True
End Function

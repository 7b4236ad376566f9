Attribute VB_Name = "Pass"
Option Explicit

Public Function IsSame(ByVal first As Long, ByVal second As Long) As Boolean
    If first = second Or first = second + first Then IsSame = True
End Function

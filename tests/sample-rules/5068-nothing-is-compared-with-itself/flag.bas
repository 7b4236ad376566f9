Attribute VB_Name = "Flag"
Option Explicit

Public Function IsSame(ByVal first As Long, ByVal second As Long) As Boolean
    If first = first Then IsSame = True
End Function

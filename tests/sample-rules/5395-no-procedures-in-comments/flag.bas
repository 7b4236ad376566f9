Attribute VB_Name = "Flag"
Option Explicit

'Public Function Old(ByVal n As Long) As Long
'    Old = n
'End Function
Public Function Total(ByVal items As Collection) As Long
    Total = items.Count
End Function

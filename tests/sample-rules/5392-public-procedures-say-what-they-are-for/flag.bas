Attribute VB_Name = "Flag"
Option Explicit

Public Function Total(ByVal items As Collection) As Long
    Total = items.Count
End Function

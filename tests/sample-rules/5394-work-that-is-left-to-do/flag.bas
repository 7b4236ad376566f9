Attribute VB_Name = "Flag"
Option Explicit

Public Function Total(ByVal items As Collection) As Long
    ' TODO: what of empty lists?
    Total = items.Count
End Function

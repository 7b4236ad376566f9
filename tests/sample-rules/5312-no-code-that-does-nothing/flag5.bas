Attribute VB_Name = "Flag5"
Option Explicit

Public Function Total(ByVal items As Collection) As Currency
    Total = items.Count
    Exit Function
    items.Remove 1
End Function

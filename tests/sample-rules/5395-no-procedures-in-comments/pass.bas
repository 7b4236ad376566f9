Attribute VB_Name = "Pass"
Option Explicit

' Like Sub Clear. Mind the End Function below.
Public Function Total(ByVal items As Collection) As Long
    Total = items.Count
End Function

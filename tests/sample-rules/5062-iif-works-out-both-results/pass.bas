Attribute VB_Name = "Pass"
Option Explicit

Public Function Share(ByVal part As Double, ByVal whole As Double) As Double
    Share = IIf(whole = 0, 0, part / 100)
End Function

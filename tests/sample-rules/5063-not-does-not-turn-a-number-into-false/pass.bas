Attribute VB_Name = "Pass"
Option Explicit

Public Function Lacks(ByVal text As String, ByVal part As String) As Boolean
    If Not InStr(text, part) > 0 Then Lacks = True
End Function

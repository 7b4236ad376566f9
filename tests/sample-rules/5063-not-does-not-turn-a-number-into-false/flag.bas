Attribute VB_Name = "Flag"
Option Explicit

Public Function Lacks(ByVal text As String, ByVal part As String) As Boolean
    If Not InStr(text, part) Then Lacks = True
End Function

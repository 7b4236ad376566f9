Attribute VB_Name = "Flag4"
Option Explicit

Public Function Fee(ByVal zone As Long) As Currency
    If zone = 1 Then
        Fee = 5
    ElseIf zone = 2 Then
        Fee = 7
    ElseIf zone = 2 Then
        Fee = 9
    End If
End Function

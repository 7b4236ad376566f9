Attribute VB_Name = "Pass"
Option Explicit

Public Function A(ByVal n As Long) As Long
    If n = 0 Then A = 1
    If n = 1 Then A = 2
    If n = 2 Then A = 3
    If n = 3 Then A = 4
    If n = 4 Then A = 5
    If n = 5 Then A = 6
    If n = 6 Then A = 7
    If n = 7 Then A = 8
    If n = 8 Then A = 9
    If n = 9 Then A = 10
    If n = 10 Then A = 11
    If n = 11 Then A = 12
End Function

Public Function B(ByVal n As Long) As Long
    B = n
End Function

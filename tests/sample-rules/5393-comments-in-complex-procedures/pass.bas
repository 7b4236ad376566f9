Attribute VB_Name = "Pass"
Option Explicit

Public Function Rank(ByVal n As Long) As Long
    ' The highest step that n has passed.
    If n > 0 Then Rank = 1
    If n > 1 Then Rank = 2
    If n > 2 Then Rank = 3
    If n > 3 Then Rank = 4
    If n > 4 Then Rank = 5
    If n > 5 Then Rank = 6
    If n > 6 Then Rank = 7
    If n > 7 Then Rank = 8
    If n > 8 Then Rank = 9
    If n > 9 Then Rank = 10
    If n > 10 Then Rank = 11
    If n > 11 Then Rank = 12
    If n > 12 Then Rank = 13
    If n > 13 Then Rank = 14
    If n > 14 Then Rank = 15
    If n > 15 Then Rank = 16
    If n > 16 Then Rank = 17
    If n > 17 Then Rank = 18
    If n > 18 Then Rank = 19
    If n > 19 Then Rank = 20
    If n > 20 Then Rank = 21
    If n > 21 Then Rank = 22
End Function

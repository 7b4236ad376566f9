Option Explicit

Public Sub Work(ByVal n As Long)
    If n = 0 Then Beep
    If n = 1 Then Beep
    If n = 2 Then Beep
    If n = 3 Then Beep
    If n = 4 Then Beep
    If n = 5 Then Beep
    If n = 6 Then Beep
    If n = 7 Then Beep
    If n = 8 Then Beep
    If n = 9 Then Beep
    If n = 10 Then Beep
    If n = 11 Then Beep
    If n = 12 Then Beep
    If n = 13 Then Beep
    If n = 14 Then Beep
    If n = 15 Then Beep
    If n = 16 Then Beep
    If n = 17 Then Beep
    If n = 18 Then Beep
    If n = 19 Then Beep
    If n = 20 Then Beep
    If n = 21 Then Beep
    If n = 22 Then Beep
    If n = 23 Then Beep
    If n = 24 Then Beep
    If n = 25 Then Beep
    If n = 26 Then Beep
    If n = 27 Then Beep
    If n = 28 Then Beep
    If n = 29 Then Beep
End Sub

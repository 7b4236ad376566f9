Option Explicit

Public Sub CountUp()
    Dim n As Long
    Again:
    n = n + 1
    If n < 3 Then GoTo Again
    If n = 3 Then GoTo Done:
    Done:
End Sub

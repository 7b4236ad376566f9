Option Explicit

Public Sub Work()
    Do While n < 3
    n = n + 1
    Loop
    Do Until found = False
    Loop
End Sub

Option Explicit

Public Sub Work()
    ' The other edition of the program does more.
End Sub

Public Sub Other()
    Beep
End Sub

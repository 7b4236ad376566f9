Option Explicit

Public Sub Work()
    If a = b Then Beep
    Imp = 1
    MsgBox "a Eqv b"
End Sub

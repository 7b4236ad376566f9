Option Explicit

Public Sub Work()
    If a Eqv b Then Beep
    ready = a Imp b
End Sub

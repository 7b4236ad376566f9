Option Explicit

Public Sub Work()
    timer.Reset
    Reset_Form
    ResetAll
End Sub

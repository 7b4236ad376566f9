Option Explicit
Private dblPrice As Double

Public Sub Work()
    Dim salary As Single
End Sub

Option Explicit

Public Sub Work()
    Reset
End Sub

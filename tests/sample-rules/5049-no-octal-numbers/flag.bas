Option Explicit

Public Sub Work()
    n = &O17
    n = &17
End Sub

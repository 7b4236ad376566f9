Option Explicit

Public Sub Work()
    target.Value = source.Value
    LSetup 1
End Sub

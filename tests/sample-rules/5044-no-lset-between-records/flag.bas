Option Explicit

Public Sub Work()
    LSet target = source
End Sub

Option Explicit

Public Sub Sum()
    Debug.Assert total > 0
    Print #n, total
End Sub

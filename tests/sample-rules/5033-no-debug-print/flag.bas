Option Explicit

Public Sub Sum()
    Debug.Print total
End Sub

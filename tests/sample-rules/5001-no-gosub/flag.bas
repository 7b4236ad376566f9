Option Explicit

Public Sub PrintAll()
    GoSub Header
    Exit Sub
    Header:
    Debug.Print 1
    Return
End Sub

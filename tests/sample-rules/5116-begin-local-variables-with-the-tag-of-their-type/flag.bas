Option Explicit

Public Sub Work()
    Dim count As Long
    Dim strName As Long
End Sub

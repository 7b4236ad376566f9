Option Explicit

Public Sub Reset()
    Let n = 1
    If n = 0 Then Let n = 2
End Sub

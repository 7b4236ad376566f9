Option Explicit

Public Sub Work()
    n = &H17
    text = a & 1
    n = 17&
End Sub

Option Explicit

Public Sub Work()
    Do While True
    If n > 3 Then Exit Do
    Loop
    Do
    Loop Until False
End Sub

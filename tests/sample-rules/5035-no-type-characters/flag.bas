Option Explicit
Private total@

Public Sub Work()
    Dim text$
    Dim i%
    text = ""
End Sub

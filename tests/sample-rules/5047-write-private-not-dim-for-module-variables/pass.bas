Option Explicit
Private count As Long

Public Sub Work()
    Dim n As Long
End Sub

Option Explicit
Private width, height As Single

Public Sub Work()
    Dim a, b As Long
    Dim n As Long, text, more As String
    Dim names(), count As Long
End Sub

Option Explicit
Private width As Single, height As Single
Private Declare Sub Pause Lib "x" (a, b As Long)

Public Sub Work()
    Dim a(1, 2) As Long, b As Long
    Dim i%, n As Long
    Dim v, w
    Dim a As Long
End Sub

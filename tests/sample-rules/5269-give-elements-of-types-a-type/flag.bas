Option Explicit
Private Type Point
    X As Long
    Y
End Type

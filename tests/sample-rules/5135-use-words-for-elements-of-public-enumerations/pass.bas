Option Explicit
Public Enum Side
    sideLeft
    sideRight
End Enum

Private Enum Axis
    X
End Enum

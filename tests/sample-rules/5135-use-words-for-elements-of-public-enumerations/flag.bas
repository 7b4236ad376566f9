Option Explicit
Public Enum Side
    L
    R
End Enum

Option Explicit
Private Type Order
    q As Long
End Type

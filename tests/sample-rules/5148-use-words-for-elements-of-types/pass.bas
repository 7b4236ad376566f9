Option Explicit
Private Type Point
    X As Long
    Y As Long
End Type

Private Type Order
    Quantity As Long
End Type

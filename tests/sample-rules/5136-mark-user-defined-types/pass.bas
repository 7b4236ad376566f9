Option Explicit
Private Type udtAddress
    Street As String
End Type

Private Type RECT
    Left As Long
End Type

Private Type TAddress
    Street As String
End Type

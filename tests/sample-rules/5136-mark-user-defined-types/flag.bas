Option Explicit
Private Type Address
    Street As String
End Type

Option Explicit
Public Enum orderState
    osOpen
End Enum

Option Explicit
Public Enum OrderState
    osOpen
End Enum

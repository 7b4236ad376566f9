Option Explicit
Private mlngLast As Long

Public Function NextNumber() As Long
    mlngLast = mlngLast + 1
    NextNumber = StaticCount + mlngLast
End Function

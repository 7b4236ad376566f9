Option Explicit

Public Function Total(ByVal a As Currency) As Currency
    total = a * 2
End Function

Public Function Text$()
    Text = "x"
End Function

Public Function Item() As Object
    Set Item = Nothing
End Function

Public Function Filled() As String
    If CopyFilled(3, Filled) Then Beep
End Function

Public Function TimerTick() As Long
    Beep
End Function

Public Function Later() As Long
    Err.Raise 5
End Function

Public Function Point() As PointType
    With Point
        .X = 1
    End With
End Function

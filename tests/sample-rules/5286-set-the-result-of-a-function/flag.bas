Option Explicit

Public Function Total(ByVal a As Currency) As Currency
    Totl = a * 2
End Function

Public Property Get Name() As String
    Debug.Print "Name = x"
End Property

Option Explicit
Private Type Point
    X As Long
    Y&
    Names() As String
#If Win64 Then
    Handle As Currency
#End If
End Type

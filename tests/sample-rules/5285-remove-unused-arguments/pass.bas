Option Explicit

Public Sub Add(ByVal amount As Currency, names() As String, t$)
    Debug.Print amount; names(0); t
End Sub

Private Sub Form_Unload(Cancel As Integer)
    Beep
End Sub

Public Sub Later(ByVal x As Long, _
    ByVal y As Single)
End Sub

Public Property Let Fixed(ByVal x As String)
    Err.Raise 383
End Property

Public Function OnTimer(ByVal hwnd As Long, ByVal id As Long) As Long
    Beep
End Function

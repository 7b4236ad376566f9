Public Sub Add()
    Beep
End Sub

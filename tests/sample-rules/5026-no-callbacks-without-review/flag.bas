Option Explicit

Public Sub StartTimer()
    id = SetTimer(0, 0, 100, AddressOf OnTimer)
End Sub

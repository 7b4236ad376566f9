Option Explicit

Public Sub QuitNow(ByVal n As Long)
    If n = 0 Then End
    If n = 1 Then End Else Beep
    End
    Beep: End
End Sub

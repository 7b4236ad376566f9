Option Explicit

Private Declare Sub Sleep Lib "kernel32" (ByVal dwMilliseconds As Long)

Public Sub Pause()
    Sleep 100
    Call Sleep(100)
End Sub

Option Explicit

Public Sub Pause()
    SleepUntil Now
    thread.Sleep 5
End Sub

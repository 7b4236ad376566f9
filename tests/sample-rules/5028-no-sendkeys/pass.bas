Option Explicit

Public Sub Tab()
    control.SendKeys "x"
    SendKeysTo 1
End Sub

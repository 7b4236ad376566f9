Option Explicit

Public Sub CountUp()
    On Error GoTo Failed
    MsgBox "GoTo the office" ' or GoTo home
    Exit Sub
    Failed:
    MsgBox Err.Description
    On Error GoTo 0
End Sub

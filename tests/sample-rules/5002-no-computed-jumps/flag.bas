Option Explicit

Public Sub Dispatch()
    Dim n As Long
    On n GoTo First, Second
    On n + 1 GoSub First
    First:
    Second:
End Sub

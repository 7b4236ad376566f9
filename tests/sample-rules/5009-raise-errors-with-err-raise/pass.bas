Option Explicit

Public Sub Check(ByVal n As Long)
    Err.Raise vbObjectError + 1, "Check", "n is negative"
    MsgBox Error$(5)
    text = Error(5)
End Sub

Option Explicit

Public Sub Start(ByVal ready As Boolean)
    If ready = True Then Beep
    Do While rs.EOF = False
    Loop
    If ready <> False Then Beep
End Sub

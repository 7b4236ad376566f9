Option Explicit

Public Sub Start(ByVal ready As Boolean)
    If ready Then Beep
    ready = True
    If Not ready Then open_ = False
    If a = TrueColour Then Beep
End Sub

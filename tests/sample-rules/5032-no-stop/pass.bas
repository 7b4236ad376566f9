Option Explicit

' Stop is a method here, and a part of other names.
Public Sub StopPlayer(ByVal player As Object)
    player.Stop
    StopAtOnce = True
    MsgBox "Stop: the disk is full"
    Debug.Assert Not player Is Nothing
End Sub

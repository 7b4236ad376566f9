Option Explicit

Public Sub QuitNow(ByVal n As Long)
    If n = 0 Then
    Unload frmMain
    End If
    Select Case n
    End Select
    With App
    End With
    theEnd = True
End Sub

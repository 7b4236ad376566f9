Option Explicit

Public Sub Remove(ByVal path As String)
    DeleteFile path
    process.Kill 1
    KillTimer 0, 1
End Sub

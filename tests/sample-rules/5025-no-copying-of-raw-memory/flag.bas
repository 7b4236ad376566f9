Option Explicit

Public Sub CopyIt()
    CopyMemory target, source, 4
    ZeroMemory target, 4
End Sub

Option Explicit

Public Sub Unlock(ByVal path As String)
    SetAttr path, vbNormal
End Sub

Option Explicit

Public Sub Grow(ByRef names() As String, ByVal n As Long)
    ReDim Preserve names(n)
End Sub

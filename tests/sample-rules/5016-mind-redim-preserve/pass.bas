Option Explicit

Public Sub Grow(ByRef names() As String, ByVal n As Long)
    ReDim names(n)
    PreserveAll names
End Sub

Option Explicit

Public Sub Draw(Optional ByVal width As Long)
End Sub

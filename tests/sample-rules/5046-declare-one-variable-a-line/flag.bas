Option Explicit

Public Sub Work()
    Dim a As Long, b As Long
    Dim names() As String, n As Long
End Sub

Option Explicit

Public Sub Work(ByVal path As String)
    Dim i As Long, s$
    Dim rows() As String
    ReDim rows(3)
    For i = 0 To 3: Debug.Print rows(i): Next
    s = path
    Debug.Print s
End Sub

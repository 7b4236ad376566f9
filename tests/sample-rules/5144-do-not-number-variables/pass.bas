Option Explicit

Public Sub Work()
    Dim x1 As Long
    Dim names(3) As String
    Dim utf8 As String
    Dim value As Long
End Sub

Option Explicit

Public Sub Work()
    Dim lngCount As Long
    Dim strName As String
    Dim astrNames() As String
End Sub

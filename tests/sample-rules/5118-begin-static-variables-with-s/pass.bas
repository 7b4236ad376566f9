Option Explicit

Public Sub Work()
    Static slngCalls As Long
    Dim lngCount As Long
End Sub

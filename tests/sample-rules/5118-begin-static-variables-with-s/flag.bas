Option Explicit

Public Sub Work()
    Static lngCalls As Long
End Sub

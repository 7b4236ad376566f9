Option Explicit

Public Sub Work()
    Dim text7 As String
    Dim value12 As Long
End Sub

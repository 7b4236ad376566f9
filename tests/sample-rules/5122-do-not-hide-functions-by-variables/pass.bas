Option Explicit
Private FormatText As String

Public Sub Work()
    Dim leftEdge As Long
    Dim started As Date
    Dim Name As String
End Sub

Option Explicit

Public Sub Shorten(ByVal name As String)
    text = Left$(name, 3)
    text = parser.Left(name)
    Form1.Left = 1
End Sub

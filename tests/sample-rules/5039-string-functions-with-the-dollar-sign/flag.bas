Option Explicit

Public Sub Shorten(ByVal name As String)
    text = Left(name, 3)
    text = UCase(Trim(name))
End Sub

Option Explicit

Public Sub Remove(ByVal path As String)
    Kill path
    If found Then Kill path & "*.tmp"
End Sub

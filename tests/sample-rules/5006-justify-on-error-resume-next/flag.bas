Option Explicit

Public Sub LoadAll(ByVal path As String)
    On Error Resume Next
    Kill path
End Sub

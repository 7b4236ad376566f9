Option Explicit

Public Sub ReadAll(ByVal path As String)
    Open path For Input As #1
    Open path For Output As 2
End Sub

Option Explicit

Public Sub ReadAll(ByVal path As String)
    n = FreeFile
    Open path For Input As #n
    Open path For Binary As n
End Sub

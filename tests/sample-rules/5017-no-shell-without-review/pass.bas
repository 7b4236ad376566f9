Option Explicit

Public Sub OpenIt(ByVal path As String)
    Set folder = objShell.Shell("x")
    ShellExecute 0, "open", path, "", "", 1
End Sub

Option Explicit

Public Sub OpenIt(ByVal path As String)
    Shell path, vbNormalFocus
    id = Shell("calc.exe")
End Sub

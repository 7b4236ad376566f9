Option Explicit

Public Sub OpenIt(ByVal path As String)
    Shell "notepad.exe " & path, vbNormalFocus
    id = Shell("calc.exe")
End Sub

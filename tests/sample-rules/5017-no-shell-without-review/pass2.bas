Option Explicit

' A command line that is put together is told by a rule of its own.
Public Sub OpenIt(ByVal path As String)
    Shell "notepad.exe " & path, vbNormalFocus
End Sub

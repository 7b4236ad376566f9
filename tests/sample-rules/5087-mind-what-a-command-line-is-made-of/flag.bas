Attribute VB_Name = "Flag"
Option Explicit

Public Sub Edit(ByVal file As String)
    Shell "notepad.exe " & file, vbNormalFocus
End Sub

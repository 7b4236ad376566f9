Attribute VB_Name = "Pass"
Option Explicit

Public Sub Edit(ByVal file As String)
    Shell "notepad.exe", vbNormalFocus
    Debug.Print "Shell " & file
End Sub

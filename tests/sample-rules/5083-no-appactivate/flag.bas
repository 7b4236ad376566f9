Attribute VB_Name = "Flag"
Option Explicit

Public Sub ShowEditor()
    AppActivate "Untitled - Notepad"
End Sub

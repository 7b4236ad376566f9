Attribute VB_Name = "Flag"
Option Explicit

Public Sub Busy()
    Screen.MousePointer = 11
End Sub

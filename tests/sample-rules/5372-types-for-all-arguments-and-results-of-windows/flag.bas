Attribute VB_Name = "Flag"
Option Explicit

Private Declare Function Beep Lib "kernel32" (ByVal dwFreq As Long, ByVal dwDuration) As Long

Public Sub Use()
    Debug.Print 1
End Sub

Attribute VB_Name = "Pass"
Option Explicit

Private Declare Sub Sleep Lib "kernel32" (ByVal dwMilliseconds As Long)
Private Declare Function GetFocus& Lib "user32" ()

Public Sub Use()
    Debug.Print 1
End Sub

Attribute VB_Name = "Pass"
Option Explicit

Private Declare Function GetFocus Lib "user32" () As Long

Public Sub Use()
    Debug.Print 1
End Sub

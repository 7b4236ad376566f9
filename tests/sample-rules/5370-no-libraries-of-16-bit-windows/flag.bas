Attribute VB_Name = "Flag"
Option Explicit

Private Declare Function GetFocus Lib "User" () As Integer

Public Sub Use()
    Debug.Print 1
End Sub

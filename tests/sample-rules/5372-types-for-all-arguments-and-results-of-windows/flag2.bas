Attribute VB_Name = "Flag2"
Option Explicit

Private Declare Function GetFocus Lib "user32" ()

Public Sub Use()
    Debug.Print 1
End Sub

Attribute VB_Name = "Flag"
Option Explicit

Private Declare Function IsAdmin Lib "shell32" Alias "#680" () As Long

Public Sub Use()
    Debug.Print 1
End Sub

Attribute VB_Name = "Pass"
Option Explicit

Private Declare Function IsAdmin Lib "shell32" Alias "IsUserAnAdmin" () As Long

Public Sub Use()
    Debug.Print 1
End Sub

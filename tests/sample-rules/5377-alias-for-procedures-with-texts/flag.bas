Attribute VB_Name = "Flag"
Option Explicit

Private Declare Function FindWindow Lib "user32" (ByVal lpClassName As String, ByVal lpWindowName As String) As Long

Public Sub Use()
    Debug.Print 1
End Sub

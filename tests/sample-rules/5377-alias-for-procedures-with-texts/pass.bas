Attribute VB_Name = "Pass"
Option Explicit

Private Declare Function FindWindow Lib "user32" Alias "FindWindowA" (ByVal lpClassName As String, ByVal lpWindowName As String) As Long
Private Declare Function SendMessage Lib "mymail" (ByVal text As String) As Long
Private Declare Function GetFocus Lib "user32" () As Long

Public Sub Use()
    Debug.Print 1
End Sub

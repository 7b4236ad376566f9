Attribute VB_Name = "Flag"
Option Explicit

Private Declare Function SetWindowText Lib "user32" Alias "SetWindowTextA" (ByVal hWnd As Long, lpString As String) As Long

Public Sub Use()
    Debug.Print 1
End Sub

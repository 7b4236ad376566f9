Attribute VB_Name = "Pass"
Option Explicit

Private Declare Function SetWindowText Lib "user32" Alias "SetWindowTextW" (ByVal hWnd As Long, ByVal lpString As Long) As Long

Public Sub Use()
    Debug.Print 1
End Sub

Attribute VB_Name = "Pass"
Option Explicit

Private Declare Function SetWindowText Lib "user32" Alias "SetWindowTextA" (ByVal hWnd As Long, ByVal lpString As String) As Long
Private Declare Function ArrPtr Lib "msvbvm60" Alias "VarPtr" (ByRef Text As String) As Long

Public Sub Use()
    Debug.Print 1
End Sub

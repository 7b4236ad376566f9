Attribute VB_Name = "Pass"
Option Explicit

Private Declare Function OpenClipboard Lib "user32" (ByVal hWnd As Long) As Long
Private Declare Function CloseClipboard Lib "user32" () As Long

Public Sub Use()
    Debug.Print 1
End Sub

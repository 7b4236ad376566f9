Attribute VB_Name = "Flag"
Option Explicit

Private Declare Function OpenClipboard Lib "user32" (ByVal hWnd As Long) As Long

Public Sub Use()
    Debug.Print 1
End Sub

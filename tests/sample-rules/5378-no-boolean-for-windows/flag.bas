Attribute VB_Name = "Flag"
Option Explicit

Private Declare Function IsWindow Lib "user32" (ByVal hWnd As Long) As Boolean

Public Sub Use()
    Debug.Print 1
End Sub

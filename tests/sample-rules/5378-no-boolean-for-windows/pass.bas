Attribute VB_Name = "Pass"
Option Explicit

Private Declare Function IsWindow Lib "user32" (ByVal hWnd As Long) As Long
Private Declare Function IsReady Lib "myscale" () As Boolean

Public Sub Use()
    Debug.Print 1
End Sub

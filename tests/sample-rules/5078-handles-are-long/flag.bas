Attribute VB_Name = "Flag"
Option Explicit

Private Declare Function GetWindowDC Lib "user32" (ByVal hWnd As Integer) As Long

Public Function Canvas() As Long
    Canvas = GetWindowDC(0)
End Function

Attribute VB_Name = "Pass"
Option Explicit

Private Declare Function GetWindowDC Lib "user32" (ByVal hWnd As Long) As Long

Public Function Canvas() As Long
    Dim hFile As Integer
    hFile = FreeFile
    Canvas = GetWindowDC(0)
End Function

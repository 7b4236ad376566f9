Attribute VB_Name = "Pass3"
Option Explicit

Private Declare Function DefSubclassProc Lib "comctl32.dll" Alias "#413" (ByVal hWnd As Long, ByVal uMsg As Long, ByVal wParam As Long, ByVal lParam As Long) As Long
Private Declare Function ILCreateFromPath Lib "Shell32" Alias "#157" (ByVal path As Long) As Long

Public Sub Use()
    Debug.Print 1
End Sub

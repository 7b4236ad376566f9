Option Explicit
Private Declare Function SendMessage Lib "user32" Alias "SendMessageA" (ByVal hWnd As Long) As Long
Private Declare Function SendMessageText Lib "user32" Alias "SendMessageA" (ByVal hWnd As Long) As Long
Private Declare Function GetTickCount Lib "kernel32" () As Long

Option Explicit
Private Declare Function GetTickCount Lib "kernel32" () As Long

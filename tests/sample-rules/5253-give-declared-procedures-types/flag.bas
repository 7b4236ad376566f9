Option Explicit
Private Declare Function Beep2 Lib "kernel32" Alias "Beep" (ByVal dwFreq, ByVal dwDuration As Long) As Long

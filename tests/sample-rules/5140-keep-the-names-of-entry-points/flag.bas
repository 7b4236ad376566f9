Option Explicit
Private Declare Function Pause Lib "kernel32" Alias "Sleep" (ByVal ms As Long) As Long

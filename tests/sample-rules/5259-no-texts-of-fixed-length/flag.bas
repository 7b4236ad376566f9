Option Explicit
Private code As String * 8

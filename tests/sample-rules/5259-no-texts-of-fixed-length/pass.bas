Option Explicit
Private code As String
Private Const CODE_LENGTH = 8

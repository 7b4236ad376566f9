Option Explicit
Public Const MaxUsers As Long = 12

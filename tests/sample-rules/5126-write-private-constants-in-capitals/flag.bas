Option Explicit
Private Const MaxUsers As Long = 12

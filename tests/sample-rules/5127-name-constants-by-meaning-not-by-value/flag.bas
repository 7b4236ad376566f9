Option Explicit
Private Const TEN As Long = 10
Public Const ONE_HUNDRED = 100

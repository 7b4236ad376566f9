Option Explicit
Public Const MAX_USERS As Long = 12
Public Const WM_USER2& = 3

Option Explicit
Private Const MAX_USERS As Long = 12
Private Const TITLE$ = "x"

Option Explicit
Private Const MAX_USERS As Long = 10
Private Const ONE_DAY As Long = 86400

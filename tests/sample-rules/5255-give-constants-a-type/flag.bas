Option Explicit
Private Const MAX_USERS = 12

Option Explicit
Global gstrUser As String
Global Const MAX_USERS = 12

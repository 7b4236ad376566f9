Option Explicit
Public gstrUserName As String
Public g_Language As Long
Private count As Long

Option Explicit
Public OpenOrders As Long
Global g_User As String

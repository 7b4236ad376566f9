Option Explicit
Public OpenOrders As Long
Private st As String

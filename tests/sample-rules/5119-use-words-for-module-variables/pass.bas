Option Explicit
Private queue As Long
Private rs As Object
Private x As Single

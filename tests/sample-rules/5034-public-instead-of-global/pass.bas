Option Explicit
Public gstrUser As String
Private GlobalCount As Long

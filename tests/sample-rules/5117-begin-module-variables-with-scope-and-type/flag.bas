Option Explicit
Private strName As String

Option Explicit
Public UserName As String

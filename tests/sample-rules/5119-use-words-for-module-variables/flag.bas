Option Explicit
Private q As Long
Private t2 As String

Option Explicit
Private mstrName As String
Private mlngCount As Long
Private mastrNames() As String

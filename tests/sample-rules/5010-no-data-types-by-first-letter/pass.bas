Option Explicit
Private DefIntCount As Long
Private DefaultName As String

Option Explicit
Private sums(5 To 9) As Long

Option Explicit
Private sums(1 To 9) As Long
Private rows(0 To 4) As Long
Private names(4) As String
Private days(FIRST To LAST) As Long

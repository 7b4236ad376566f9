Option Explicit
Option Compare Text
Private counts(1 To 12) As Long

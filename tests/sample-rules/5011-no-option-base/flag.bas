Option Explicit
Option Base 1
Private counts(12) As Long

Option Explicit
Dim count As Long

Option Explicit
Private count As Long
Dim total As Currency

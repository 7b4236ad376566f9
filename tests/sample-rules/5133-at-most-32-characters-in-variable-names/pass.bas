Option Explicit
Private OpenOrderCount As Long

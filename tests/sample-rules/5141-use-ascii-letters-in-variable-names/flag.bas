Option Explicit
Private größe As Long

Option Explicit
Private size As Long
' die Größe

Option Explicit
Private excel As Object

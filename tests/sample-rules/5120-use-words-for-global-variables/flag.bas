Option Explicit
Public st As Long
Public d As Object

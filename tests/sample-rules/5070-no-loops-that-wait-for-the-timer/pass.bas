Attribute VB_Name = "Pass"
Option Explicit

Public Function Elapsed(ByVal start As Single) As Single
    If Timer >= start Then Elapsed = Timer - start Else Elapsed = Timer + 86400 - start
End Function

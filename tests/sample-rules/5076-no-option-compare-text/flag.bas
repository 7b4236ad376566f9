Attribute VB_Name = "Flag"
Option Explicit

Option Compare Text

Public Function IsYes(ByVal answer As String) As Boolean
    IsYes = (answer = "yes")
End Function

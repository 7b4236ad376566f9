Attribute VB_Name = "Pass"
Option Explicit

Public Function Label(ByVal number As Variant) As String
    Label = "+" & (number + 1) & " items"
End Function

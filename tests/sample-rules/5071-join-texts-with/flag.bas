Attribute VB_Name = "Flag"
Option Explicit

Public Function Label(ByVal number As Variant) As String
    Label = "No. " + number
End Function

Attribute VB_Name = "Flag"
Option Explicit

Public Function OwnerOf(ByVal record As Object) As String
    OwnerOf = record!Owner
End Function

Attribute VB_Name = "Pass"
Option Explicit

Public Function OwnerOf(ByVal record As Object) As String
    OwnerOf = record.Fields("Owner!").Value & CStr(2! + 1)
End Function

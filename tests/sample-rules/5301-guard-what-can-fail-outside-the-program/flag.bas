Attribute VB_Name = "Flag"
Option Explicit

Public Sub Store(ByVal file As String, ByVal text As String)
    Dim number As Integer
    number = FreeFile
    Open file For Output As #number
    Print #number, text
    Close #number
End Sub

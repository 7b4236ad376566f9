Attribute VB_Name = "Pass"
Option Explicit

Public Function ReadTitle() As String
    Dim file As Integer
    file = FreeFile
    Open App.Path & "\title.txt" For Input As #file
    Line Input #file, ReadTitle
    Close #file
End Function

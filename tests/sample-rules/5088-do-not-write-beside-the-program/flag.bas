Attribute VB_Name = "Flag"
Option Explicit

Public Sub WriteLog(ByVal line As String)
    Dim file As Integer
    file = FreeFile
    Open App.Path & "\log.txt" For Append As #file
    Print #file, line
    Close #file
End Sub

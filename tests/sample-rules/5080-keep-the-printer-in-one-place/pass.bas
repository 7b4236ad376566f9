Attribute VB_Name = "Pass"
Option Explicit

Public Sub PrintTitle(ByVal report As Object, ByVal title As String)
    report.Printer.Add title
End Sub

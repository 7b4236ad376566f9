Attribute VB_Name = "Flag"
Option Explicit

Public Sub PrintTitle(ByVal title As String)
    Printer.FontBold = True
    Printer.Print title
End Sub

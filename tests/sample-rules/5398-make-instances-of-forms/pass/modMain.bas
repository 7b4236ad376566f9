Attribute VB_Name = "modMain"
Option Explicit

Public Sub Main()
    Dim window As frmMain
    Set window = New frmMain
    window.Show vbModal
    frmMain.ShowHelp
End Sub

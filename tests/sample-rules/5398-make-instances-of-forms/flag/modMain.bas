Attribute VB_Name = "modMain"
Option Explicit

Public Sub Main()
    frmMain.Show
End Sub

Attribute VB_Name = "Main"
Option Explicit

Public Sub Main()
    MsgBox App.Title
End Sub

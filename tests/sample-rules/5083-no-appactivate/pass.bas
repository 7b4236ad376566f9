Attribute VB_Name = "Pass"
Option Explicit

Public Sub ShowEditor(ByVal editor As Object)
    editor.AppActivate
End Sub

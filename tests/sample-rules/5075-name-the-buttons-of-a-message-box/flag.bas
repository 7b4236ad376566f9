Attribute VB_Name = "Flag"
Option Explicit

Public Function Sure(ByVal file As String) As Boolean
    Sure = (MsgBox("Delete " & file & "?", 36) = vbYes)
End Function

Attribute VB_Name = "Pass"
Option Explicit

Public Function Sure(ByVal file As String) As Boolean
    Sure = (MsgBox(Left$(file, 36) & "?", vbYesNo Or vbQuestion) = vbYes)
End Function

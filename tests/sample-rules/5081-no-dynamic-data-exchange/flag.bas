Attribute VB_Name = "Flag"
Option Explicit

Public Sub Fetch(ByVal box As TextBox)
    box.LinkTopic = "Excel|Sheet1"
    box.LinkMode = vbLinkAutomatic
End Sub

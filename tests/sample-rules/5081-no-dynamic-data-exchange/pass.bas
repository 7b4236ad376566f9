Attribute VB_Name = "Pass"
Option Explicit

Public Sub Fetch(ByVal box As TextBox, ByVal list As Object)
    box.Text = list.LinkName
End Sub

Attribute VB_Name = "Pass"
Option Explicit

Public Function Third(ByVal page As Object) As String
    Third = page.Line(3) & page.Circles(1)
End Function

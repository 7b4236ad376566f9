Attribute VB_Name = "Pass"
Option Explicit

Public Function Fetch(ByVal inet As Object) As String
    Fetch = inet.OpenURL("https://prices.example.com/today.txt")
    inet.Namespace = "http://www.w3.org/1999/xhtml"
    inet.Tag = "http://"
End Function

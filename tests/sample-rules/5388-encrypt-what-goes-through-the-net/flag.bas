Attribute VB_Name = "Flag"
Option Explicit

Public Function Fetch(ByVal inet As Object) As String
    Fetch = inet.OpenURL("http://prices.example.com/today.txt")
End Function

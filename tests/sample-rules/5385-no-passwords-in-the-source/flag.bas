Attribute VB_Name = "Flag"
Option Explicit

Public Sub Connect(ByVal connection As Object)
    connection.Open "Provider=SQLOLEDB;Data Source=shop;User ID=sa;Password=Winter99"
End Sub

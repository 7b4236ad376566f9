Attribute VB_Name = "Pass"
Option Explicit

Public Sub Connect(ByVal connection As Object, ByVal password As String)
    connection.Open "Provider=SQLOLEDB;Data Source=shop;User ID=sa;Password=" & password
    MsgBox "Password = " & vbCrLf & "(hidden)"
End Sub

Attribute VB_Name = "modOrders"
Option Explicit

Public Sub Connect(ByVal connection As Object, ByVal file As String)
    connection.Open "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" & file
End Sub

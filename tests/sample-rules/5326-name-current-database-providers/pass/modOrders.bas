Attribute VB_Name = "modOrders"
Option Explicit

Public Sub Connect(ByVal connection As Object, ByVal file As String)
    connection.Open "Provider=Microsoft.ACE.OLEDB.12.0;Data Source=" & file
    Debug.Print "instead of Jet {old}"
End Sub

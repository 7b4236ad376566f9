Attribute VB_Name = "modOrders"
Option Explicit

Public Function Find(ByVal connection As Object, ByVal name As String) As Object
    Set Find = connection.Execute("SELECT * FROM Customers WHERE Name = '" & name & "'")
End Function

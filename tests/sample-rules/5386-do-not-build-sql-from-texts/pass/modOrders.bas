Attribute VB_Name = "modOrders"
Option Explicit

Public Function Find(ByVal connection As Object, ByVal number As Long, ByVal name As String) As Object
    Set Find = connection.Execute("SELECT * FROM Customers WHERE ID = " & CLng(number))
    Debug.Print "Select a customer from the list: " & name
End Function

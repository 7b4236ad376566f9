Attribute VB_Name = "modOrders"
Option Explicit

Public Function Orders(ByVal connection As Object) As Object
    Set Orders = connection.Execute("SELECT COUNT(*) FROM Orders")
    Debug.Print "select 2 * from the list"
End Function

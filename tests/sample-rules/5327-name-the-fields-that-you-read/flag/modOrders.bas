Attribute VB_Name = "modOrders"
Option Explicit

Public Function Orders(ByVal connection As Object) As Object
    Set Orders = connection.Execute("SELECT * FROM Orders WHERE Open = 1")
End Function

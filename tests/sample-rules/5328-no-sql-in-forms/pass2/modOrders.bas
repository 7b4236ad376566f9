Attribute VB_Name = "modOrders"
Option Explicit

Public Sub Load(ByVal source As Object)
    source.Open "SELECT Name FROM Customers ORDER BY Name"
End Sub

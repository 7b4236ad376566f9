Attribute VB_Name = "Flag"
Option Explicit

Public Function HasOrders(ByVal orders As Object) As Boolean
    HasOrders = (orders.RecordCount > 0)
End Function

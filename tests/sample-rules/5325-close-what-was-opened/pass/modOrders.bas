Attribute VB_Name = "modOrders"
Option Explicit

Public Function Count(ByVal connection As Object) As Long
    Dim orders As New ADODB.Recordset
    orders.Open "Orders", connection
    Count = orders.RecordCount
    orders.Close
End Function

Public Function Found(ByVal connection As Object) As ADODB.Recordset
    Dim orders As New ADODB.Recordset
    orders.Open "Orders", connection
    Set Found = orders
End Function

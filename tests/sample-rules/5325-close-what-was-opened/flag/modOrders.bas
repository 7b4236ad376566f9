Attribute VB_Name = "modOrders"
Option Explicit

Public Function Count(ByVal connection As Object) As Long
    Dim orders As ADODB.Recordset
    orders.CursorLocation = 3
    orders.Open "Orders", connection
    Count = orders.RecordCount
End Function

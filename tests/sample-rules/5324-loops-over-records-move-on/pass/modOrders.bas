Attribute VB_Name = "modOrders"
Option Explicit

Public Sub List(ByVal orders As ADODB.Recordset)
    Do Until orders.EOF
        Debug.Print orders.Fields(0).Value
        orders.MoveNext
    Loop
    If orders.EOF Then orders.Close
End Sub

Attribute VB_Name = "modOrders"
Option Explicit

Public Sub List(ByVal orders As ADODB.Recordset)
    Do Until orders.EOF
        Debug.Print orders.Fields(0).Value
    Loop
End Sub

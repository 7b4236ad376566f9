Attribute VB_Name = "modOrders"
Option Explicit

Public Sub Book(ByVal connection As ADODB.Connection)
    On Error GoTo Failed
    connection.BeginTrans
    connection.Execute "UPDATE Stock SET Amount = 0"
    connection.CommitTrans
    Exit Sub
Failed:
    connection.RollbackTrans
End Sub

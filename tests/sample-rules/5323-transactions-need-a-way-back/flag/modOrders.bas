Attribute VB_Name = "modOrders"
Option Explicit

Public Sub Book(ByVal connection As ADODB.Connection)
    connection.BeginTrans
    connection.Execute "UPDATE Stock SET Amount = 0"
    connection.CommitTrans
End Sub

Attribute VB_Name = "Pass"
Option Explicit

Public Function HasOrders(ByVal orders As Object, ByVal most As Long) As Boolean
    HasOrders = Not orders.EOF
    If orders.RecordCount > most Then Debug.Print "many"
End Function

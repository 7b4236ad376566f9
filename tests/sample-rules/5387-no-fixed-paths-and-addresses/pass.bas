Attribute VB_Name = "Pass"
Option Explicit

Public Function Orders() As String
    Orders = App.Path & "\Shop\orders.mdb"
    Debug.Print "not C:\Shop\orders.mdb", "127.0.0.1"
End Function

Attribute VB_Name = "Flag"
Option Explicit

Public Function Orders() As String
    Orders = "C:\Shop\orders.mdb"
End Function

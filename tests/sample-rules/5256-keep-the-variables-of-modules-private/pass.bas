Option Explicit
Private openOrders As Long

Public Property Get OrderCount() As Long
    OrderCount = openOrders
End Property

Option Explicit

Public Sub WriteOpenOrders()
End Sub

Option Explicit

Public Sub ReadAllOpenOrdersAndWriteThemToTheLedgers()
End Sub

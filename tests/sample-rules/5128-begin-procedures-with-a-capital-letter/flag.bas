Option Explicit

Public Sub saveOrder()
End Sub
